#pragma once

#include "base/Seams.h"

#include <QList>
#include <QStringList>

// Answers the message boxes of a test from a queue and keeps what they showed. A question without a prepared answer
// fails the test with its text; a box with OK alone needs none.
class MessageQueue {
public:
    explicit MessageQueue(QList<MessageAnswer> answers = {});
    ~MessageQueue();
    MessageQueue(const MessageQueue&) = delete;
    MessageQueue& operator=(const MessageQueue&) = delete;

    void prepare(MessageAnswer answer) { m_answers << answer; }
    QStringList texts() const;
    const QList<MessageBoxRequest>& requests() const { return m_requests; }
    bool isEmpty() const { return m_requests.isEmpty(); }
    // Prepared answers that no question took.
    qsizetype unused() const { return m_answers.size(); }

private:
    qint16 show(const MessageBoxRequest& request);

    QList<MessageAnswer> m_answers;
    QList<MessageBoxRequest> m_requests;
    std::function<qint16(const MessageBoxRequest&)> m_before;
};

// Holds the clock at a moment, "2024/03/10 9:05:00".
class FixedClock {
public:
    explicit FixedClock(const QString& moment) { set(moment); }
    ~FixedClock() { seams().now = m_before; }
    FixedClock(const FixedClock&) = delete;
    FixedClock& operator=(const FixedClock&) = delete;

    void set(const QString& moment);

private:
    std::function<QDateTime()> m_before = seams().now;
};
