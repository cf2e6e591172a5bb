#pragma once

#include "base/Seams.h"

#include <QStringList>

#include <utility>

// Takes every message box of a test and answers it with the given answers in turn, then with None.
class CapturedMessages {
public:
    explicit CapturedMessages(QList<qint16> answers = {})
        : m_before(std::exchange(seams().message, [this](const MessageBoxRequest& request) { return take(request); })),
          m_answers(std::move(answers)) {}
    ~CapturedMessages() { seams().message = m_before; }
    CapturedMessages(const CapturedMessages&) = delete;
    CapturedMessages& operator=(const CapturedMessages&) = delete;

    QStringList texts;

private:
    qint16 take(const MessageBoxRequest& request) {
        texts << request.text;
        return m_answers.isEmpty() ? qint16(AnswerNone) : m_answers.takeFirst();
    }

    std::function<qint16(const MessageBoxRequest&)> m_before;
    QList<qint16> m_answers;
};
