#pragma once

#include <QList>
#include <QString>

#include <utility>

// The one INI file of the installation: `Halvane.ini` in the program folder, in code page 932; one in UTF-8 or UTF-16
// is refused as such. Sections and keys compare without regard to case; the last write wins; lines that it does not
// understand stay as they are.
class clsProfile {
public:
    // Raises "INIﾌｧｲﾙが見つかりません。" when the file is missing.
    clsProfile();
    // Another file of the same form, such as that of a second installation.
    explicit clsProfile(QString file);

    QString Path() const { return m_path; }
    // The folder that it stands in, without a separator at its end.
    QString Folder() const;
    void DeleteSection(const QString& section) const;
    // Takes a key out, and its section with it when nothing else stands there.
    void DeleteValue(const QString& section, const QString& key) const;
    void SaveValue(const QString& section, const QString& key, const QString& value) const;
    // The same for what is but remembered, such as the place of a window: a failure is told once in a run, and the work
    // goes on.
    using Values = QList<std::pair<QString, QString>>; // keys and values
    void Remember(const QString& section, const Values& values) const;
    // The value as read, cut to 1,000 bytes of the code page; the default when the key is missing.
    QString GetValue(const QString& section, const QString& key, const QString& defaultValue = {}) const;
    // The value as a whole number between two bounds, the default when the key is missing. Any other value raises an
    // error that names section and key.
    qint64 GetNumber(const QString& section, const QString& key, qint64 defaultValue, qint64 least, qint64 most) const;
    // The value as a path, resolved against the file's own folder when relative; empty stays empty.
    QString GetPath(const QString& section, const QString& key, const QString& defaultValue = {}) const;

private:
    void write(const QString& section, const Values& values) const;

    QString m_path;
};
