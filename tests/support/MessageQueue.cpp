#include "support/MessageQueue.h"

#include "base/Dates.h"

#include <QTest>

MessageQueue::MessageQueue(QList<MessageAnswer> answers) : m_answers(std::move(answers)), m_before(seams().message) {
    seams().message = [this](const MessageBoxRequest& request) { return show(request); };
}

MessageQueue::~MessageQueue() { seams().message = m_before; }

QStringList MessageQueue::texts() const {
    QStringList texts;
    for (const MessageBoxRequest& request : m_requests) texts << request.text;
    return texts;
}

qint16 MessageQueue::show(const MessageBoxRequest& request) {
    m_requests << request;
    if (request.buttons == MessageButtons::Ok) return AnswerNone;
    if (!m_answers.isEmpty()) return m_answers.takeFirst();
    QTest::qFail(qUtf8Printable(u"unprepared question: "_qs + request.text), __FILE__, __LINE__);
    return AnswerCancel;
}

void FixedClock::set(const QString& moment) {
    const auto value = parseDate(moment);
    if (!value) qFatal("no moment: %s", qUtf8Printable(moment));
    seams().now = [value = *value] { return value; };
}
