#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QList>
#include <QString>
#include <QStringList>

#include <utility>

// One value inside of a layout file that knows its place there, so that every fault names it: "bands.detail.height".
// Reading a value that is absent gives the default; a value of another kind raises an error.
class ReportLayoutNode {
public:
    ReportLayoutNode(QJsonValue value, QString file, QString place);

    bool has(QStringView key) const;
    // The member of an object; an absent one may still be read for its default.
    ReportLayoutNode operator[](QStringView key) const;
    QList<std::pair<QString, ReportLayoutNode>> members() const;
    QList<ReportLayoutNode> elements() const;
    // Raises an error for a member with any other name.
    void allow(const QStringList& keys) const;

    QString text() const;
    bool flag() const;
    int twips() const; // must be given
    int twips(int whenAbsent) const;
    QList<int> twipsList(int count) const;
    double points() const;
    // The place of the text among the choices; absent: the first.
    int choice(const QStringList& choices) const;

    [[noreturn]] void fail(const QString& reason) const;

private:
    bool absent() const { return m_value.isUndefined(); }

    QJsonValue m_value;
    QString m_file;
    QString m_place;
};
