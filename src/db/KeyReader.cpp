#include "db/KeyReader.h"

#include "db/Connection.h"

#include <QCoreApplication>
#include <QThread>
#include <QTimer>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>

namespace {

constexpr int firstBatch = 100;
constexpr int largestBatch = 20'000;
constexpr int patience = 500; // milliseconds
constexpr std::chrono::milliseconds courtesy(100);

} // namespace

// Works through one statement after the other; of those that wait only the last counts. It outlives its reader when the
// reader goes in the middle of a statement.
class KeyReader::Worker {
public:
    Worker(KeyReader* reader, ConnectionSettings settings) : m_reader(reader), m_settings(std::move(settings)) {}

    void ask(int reading, const QString& statement) {
        const std::lock_guard lock(m_mutex);
        m_asked = reading;
        m_statement = statement;
        m_changed.notify_all();
    }

    // True once something of this reading is on its way to the reader.
    bool awaitSent(int reading, std::chrono::milliseconds longest) {
        std::unique_lock lock(m_mutex);
        return m_changed.wait_for(lock, longest, [&] { return m_sent == reading; });
    }

    // The reader has shown the first keys of a reading, and needs those before no more. Letting go of a long list takes
    // longer than showing one, so that is done here.
    void noteShown(int reading, QStringList spent) {
        const std::lock_guard lock(m_mutex);
        m_shown = reading;
        m_spent = std::move(spent);
        m_changed.notify_all();
    }

    void leave() {
        const std::lock_guard lock(m_mutex);
        m_reader = nullptr;
        m_changed.notify_all();
    }

    void run() {
        std::unique_ptr<Connection> connection;
        while (const auto statement = next()) {
            try {
                if (!connection) {
                    connection = std::make_unique<Connection>(m_settings);
                    connection->open();
                }
                read(*connection, *statement);
            } catch (const AppError& error) {
                connection.reset();
                deliver([&](KeyReader* reader) {
                    QMetaObject::invokeMethod(
                        reader, [reader, reading = m_current, error] { reader->takeFailure(reading, error); },
                        Qt::QueuedConnection);
                });
            }
        }
    }

private:
    std::optional<QString> next() {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return !m_reader || m_asked != m_current; });
        m_spent.clear();
        if (!m_reader) return std::nullopt;
        m_current = m_asked;
        return m_statement;
    }

    void read(Connection& connection, const QString& statement) {
        Recordset rows = connection.querySoonest(statement);
        QStringList keys;
        int batch = firstBatch;
        while (rows.next()) {
            keys << rows.value(0);
            if (keys.size() < batch) continue;
            if (!send(std::exchange(keys, {}), false)) return;
            if (batch == firstBatch) letShow();
            batch = qMin(batch * 4, largestBatch);
        }
        send(keys, true);
    }

    // Who looks at the list comes first; but no longer than a moment, as the statement holds the shared file.
    void letShow() {
        QStringList spent; // goes after the lock
        std::unique_lock lock(m_mutex);
        m_changed.wait_for(lock, courtesy,
                           [this] { return !m_reader || m_asked != m_current || m_shown == m_current; });
        spent.swap(m_spent);
    }

    // False when nobody wants more of this reading.
    bool send(const QStringList& keys, bool last) {
        return deliver([&](KeyReader* reader) {
            QMetaObject::invokeMethod(
                reader, [reader, reading = m_current, keys, last] { reader->take(reading, keys, last); },
                Qt::QueuedConnection);
        });
    }

    template <class Post> bool deliver(Post post) {
        const std::lock_guard lock(m_mutex);
        if (!m_reader || m_asked != m_current) return false;
        post(m_reader);
        m_sent = m_current;
        m_changed.notify_all();
        return true;
    }

    std::mutex m_mutex;  // guards the next six
    KeyReader* m_reader; // nothing once it has gone
    int m_asked = 0;
    int m_sent = 0;
    int m_shown = 0;
    QStringList m_spent;
    QString m_statement;
    std::condition_variable m_changed;
    int m_current = 0;
    ConnectionSettings m_settings;
};

KeyReader::KeyReader(ConnectionSettings settings, QObject* parent)
    : QObject(parent), m_worker(std::make_shared<Worker>(this, std::move(settings))),
      m_thread(QThread::create([worker = m_worker] { worker->run(); })) {
    connect(m_thread, &QThread::finished, m_thread, &QObject::deleteLater);
    m_thread->start();
}

KeyReader::~KeyReader() {
    m_worker->leave();
    m_thread->wait(patience);
}

void KeyReader::read(const QString& statement) {
    m_reading = m_first = true;
    m_worker->ask(++m_current, statement);
}

void KeyReader::awaitFirst(int milliseconds) {
    if (m_worker->awaitSent(m_current, std::chrono::milliseconds(milliseconds)))
        QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
}

void KeyReader::take(int reading, const QStringList& keys, bool last) {
    if (reading != m_current) return;
    m_reading = !last;
    if (std::exchange(m_first, false)) {
        QStringList before = std::exchange(m_keys, keys);
        emit begun();
        // After the painting that this asks for; the two would slow each other down.
        QTimer::singleShot(0, this, [worker = m_worker, reading, before = std::move(before)]() mutable {
            worker->noteShown(reading, std::move(before));
        });
    } else {
        m_keys << keys;
        emit grown();
    }
    if (last) emit finished();
}

void KeyReader::takeFailure(int reading, const AppError& error) {
    if (reading != m_current) return;
    m_reading = false;
    emit failed(error);
}
