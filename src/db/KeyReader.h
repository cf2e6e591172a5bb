#pragma once

#include "base/AppError.h"
#include "db/ConnectionSettings.h"

#include <QObject>
#include <QStringList>

#include <memory>

class QThread;

// Reads the keys of a list's rows on a thread and a connection of its own, so that no window waits for a sort over a
// large table and no reader holds the shared file while the operator looks at the list. Of a row nothing but its key is
// kept.
class KeyReader : public QObject {
    Q_OBJECT

public:
    explicit KeyReader(ConnectionSettings settings, QObject* parent = nullptr);
    // Waits a moment for a statement under way; a longer one ends by itself.
    ~KeyReader() override;

    // Starts to read; a reading under way is given up. The statement's first column is the key, its rows stand in the
    // order of the list. The keys of the reading before stay until the first of the new ones are here.
    void read(const QString& statement);
    // Takes the first keys here and now if they come within so many milliseconds.
    void awaitFirst(int milliseconds);
    bool isReading() const { return m_reading; }

    int count() const { return static_cast<int>(m_keys.size()); }
    const QString& key(int row) const { return m_keys.at(row); }

signals:
    // The first keys of a reading (none, if there are no rows) stand in place of all before.
    void begun();
    // More keys are there.
    void grown();
    // The last one is there.
    void finished();
    // The reading broke off.
    void failed(const AppError& error);

private:
    class Worker;

    void take(int reading, const QStringList& keys, bool last);
    void takeFailure(int reading, const AppError& error);

    std::shared_ptr<Worker> m_worker;
    QThread* m_thread;
    QStringList m_keys;
    int m_current = 0;
    bool m_reading = false;
    bool m_first = false;
};
