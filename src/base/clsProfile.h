#pragma once

#include <QString>

// The one INI file of the installation: `Halvane.ini` in the program folder, in code page 932. Sections and keys
// compare without regard to case; the last write wins; lines that it does not understand stay as they are.
class clsProfile {
public:
    // Raises "INIﾌｧｲﾙが見つかりません。" when the file is missing.
    clsProfile();
    // Another file of the same form, such as that of a second installation.
    explicit clsProfile(QString file);

    QString Path() const { return m_path; }
    void DeleteSection(const QString& section) const;
    void SaveValue(const QString& section, const QString& key, const QString& value) const;
    // The value as read, cut to 1,000 bytes of the code page; the default when the key is missing.
    QString GetValue(const QString& section, const QString& key, const QString& defaultValue = {}) const;
    // The value as a path, resolved against the program folder when relative; empty stays empty.
    QString GetPath(const QString& section, const QString& key, const QString& defaultValue = {}) const;

private:
    QString m_path;
};
