#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class Connection;

// Looks for estimates whose element lines were lost: those whose stored total does not agree with the sums of their
// lines, in three passes, and writes them to a report in the log folder. It changes no data.
//
// The sums are those of one statement that joins both element tables by the estimate alone, so that each counts once
// for every line of the other; a pass asks for sums of which one or both are missing, where that makes no difference.
class clsSearchAbnormal {
public:
    // Reads the INI file's log folder and names the report by the minute; one of the same minute is deleted.
    clsSearchAbnormal();
    // Tells that the check is complete, or was stopped, and where the report is; nothing when a pass failed.
    ~clsSearchAbnormal();
    clsSearchAbnormal(const clsSearchAbnormal&) = delete;
    clsSearchAbnormal& operator=(const clsSearchAbnormal&) = delete;

    void Prepare(Connection& connection) { m_connection = &connection; }

    // Told ahead of each part of a pass; false stops the check. A pass that was stopped leaves its title alone.
    std::function<bool(const QString& pass, qint64 done, qint64 all)> progress;

    // The passes, in the order in which they run: lines of 完成要素, of 基本・製作要素, and of both are missing. False
    // when the check was stopped.
    bool WriteKanseiLost();
    bool WriteKihonLost();
    bool WriteBothLost();

    const QString& path() const { return m_path; }

    // The statements of the passes over all estimates at once, in the order of the report.
    static QStringList wholeStatements();

private:
    struct Finding;

    bool writePass(const QString& having, const QString& title);
    void findSlices();
    void readSlice(const QString& slice, const QString& having, QList<Finding>& findings);
    void WriteLogNoDate(const QStringList& lines) const;

    QString m_path;
    Connection* m_connection = nullptr;
    QStringList m_slices; // conditions that part the estimates
    bool m_stopped = false;
    bool m_complete = false; // every pass so far
};
