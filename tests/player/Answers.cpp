#include "Answers.h"

#include "StepFailure.h"

#include <QDir>
#include <QHash>

namespace {

const QHash<QString, qint16>& answerWords() {
    static const QHash<QString, qint16> words{{u"yes"_qs, AnswerYes},
                                              {u"no"_qs, AnswerNo},
                                              {u"cancel"_qs, AnswerCancel},
                                              {u"ok"_qs, AnswerNone},
                                              {u"retry"_qs, AnswerRetry}};
    return words;
}

QList<qint16> buttonsOf(MessageButtons buttons) {
    switch (buttons) {
    case MessageButtons::Ok:
        return {AnswerNone};
    case MessageButtons::YesNo:
        return {AnswerYes, AnswerNo};
    case MessageButtons::YesNoCancel:
        return {AnswerYes, AnswerNo, AnswerCancel};
    case MessageButtons::RetryCancel:
        return {AnswerRetry, AnswerCancel};
    }
    return {};
}

// The answer that leaves everything as it is.
qint16 yieldingAnswer(MessageButtons buttons) {
    return buttons == MessageButtons::RetryCancel ? AnswerCancel : AnswerNo;
}

void expectOldest(QStringList& said, const QString& text, const QString& what) {
    if (said.isEmpty()) throw StepFailure{u"no %1"_qs.arg(what), text};
    if (!said.first().contains(text)) throw StepFailure{said.first(), text};
    said.removeFirst();
}

} // namespace

void Answers::install() {
    seams().message = [this](const MessageBoxRequest& request) { return answer(request); };
    seams().saveFile = [this](FileDialogRequest& request) { return nextFile(request.caption); };
    seams().openFolder = [this](const FileDialogRequest& request) { return nextFile(request.caption); };
    seams().openWithShell = [this](const QString& path) { m_said << u"(opened) "_qs + path; };
}

void Answers::prepare(const QStringList& words) {
    for (const QString& word : words)
        if (!answerWords().contains(word)) throw StepFailure{word, u"yes, no, cancel, ok or retry"_qs};
    m_words += words;
}

void Answers::prepareFile(const QString& path) { m_files << path; }

void Answers::expectMessage(const QString& text) { expectOldest(m_messages, text, u"message"_qs); }

void Answers::expectQuestion(const QString& text) { expectOldest(m_questions, text, u"question"_qs); }

void Answers::expectNoMessage() const {
    if (!m_messages.isEmpty()) throw StepFailure{m_messages.first(), u"no message"_qs};
}

qint16 Answers::answer(const MessageBoxRequest& request) {
    m_said << request.text;
    if (request.buttons == MessageButtons::Ok) {
        m_messages << request.text;
        return AnswerNone;
    }
    if (m_givesWay || !m_trouble.isEmpty()) return yieldingAnswer(request.buttons);
    return preparedAnswer(request);
}

qint16 Answers::preparedAnswer(const MessageBoxRequest& request) {
    m_questions << request.text;
    if (m_words.isEmpty()) {
        m_trouble = u"the question \"%1\", with no answer prepared"_qs.arg(request.text);
        return yieldingAnswer(request.buttons);
    }
    const QString word = m_words.takeFirst();
    const qint16 given = answerWords().value(word);
    if (buttonsOf(request.buttons).contains(given)) return given;
    m_trouble = u"the question \"%1\", which has no button for the prepared answer %2"_qs.arg(request.text, word);
    return yieldingAnswer(request.buttons);
}

QString Answers::nextFile(const QString& caption) {
    if (m_givesWay || !m_trouble.isEmpty()) return {};
    if (m_files.isEmpty()) {
        m_trouble = u"a file dialog \"%1\", with no file prepared"_qs.arg(caption);
        return {};
    }
    const QString path = m_files.takeFirst();
    return path == u"cancel" ? QString() : QDir::toNativeSeparators(QDir(m_folder).absoluteFilePath(path));
}
