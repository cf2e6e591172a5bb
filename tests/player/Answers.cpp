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
    case MessageButtons::OkCancel:
        return {AnswerNone, AnswerCancel};
    }
    return {};
}

// The answer that leaves everything as it is.
qint16 yieldingAnswer(MessageButtons buttons) {
    const bool hasNo = buttons == MessageButtons::YesNo || buttons == MessageButtons::YesNoCancel;
    return hasNo ? AnswerNo : AnswerCancel;
}

} // namespace

void Answers::install() {
    seams().message = [this](const MessageBoxRequest& request) { return answer(request); };
    seams().saveFile = [this](FileDialogRequest& request) { return nextFile(request.caption); };
    seams().openFolder = [this](const FileDialogRequest& request) { return nextFile(request.caption); };
    seams().openFile = [this](const FileDialogRequest& request) { return nextFile(request.caption); };
    seams().openWithShell = [this](const QString& path) { m_said << u"(opened) "_qs + path; };
}

void Answers::prepare(const QStringList& words) {
    for (const QString& word : words)
        if (!answerWords().contains(word)) throw StepFailure{word, u"yes, no, cancel, ok or retry"_qs};
    m_words += words;
}

void Answers::prepareFile(const QString& path) { m_files << path; }

void Answers::expectMessage(const QString& text) {
    for (qsizetype i = 0; i < m_boxes.size(); ++i) {
        const Box& box = m_boxes.at(i);
        if (box.text.contains(text)) return m_boxes.remove(0, i + 1);
        if (!box.isQuestion) throw StepFailure{box.text, text};
    }
    throw StepFailure{u"no message"_qs, text};
}

void Answers::expectQuestion(const QString& text) {
    for (qsizetype i = 0; i < m_boxes.size(); ++i) {
        if (!m_boxes.at(i).isQuestion) continue;
        if (!m_boxes.at(i).text.contains(text)) throw StepFailure{m_boxes.at(i).text, text};
        return m_boxes.removeAt(i);
    }
    throw StepFailure{u"no question"_qs, text};
}

void Answers::expectNoMessage() const {
    for (const Box& box : m_boxes)
        if (!box.isQuestion) throw StepFailure{box.text, u"no message"_qs};
}

qint16 Answers::answer(const MessageBoxRequest& request) {
    m_said << request.text;
    if (request.buttons == MessageButtons::Ok) {
        m_boxes << Box{request.text, false};
        if (m_words.value(0) == u"ok") m_words.removeFirst();
        return AnswerNone;
    }
    if (m_givesWay) return yieldingAnswer(request.buttons);
    return preparedAnswer(request);
}

qint16 Answers::preparedAnswer(const MessageBoxRequest& request) {
    m_boxes << Box{request.text, true};
    if (m_words.isEmpty()) {
        giveUp(u"the question \"%1\", with no answer prepared"_qs.arg(request.text));
        return yieldingAnswer(request.buttons);
    }
    const QString word = m_words.takeFirst();
    const qint16 given = answerWords().value(word);
    if (buttonsOf(request.buttons).contains(given)) return given;
    giveUp(u"the question \"%1\", which has no button for the prepared answer %2"_qs.arg(request.text, word));
    return yieldingAnswer(request.buttons);
}

QString Answers::nextFile(const QString& caption) {
    if (m_givesWay) return {};
    if (m_files.isEmpty()) {
        giveUp(u"a file dialog \"%1\", with no file prepared"_qs.arg(caption));
        return {};
    }
    const QString path = m_files.takeFirst();
    return path == u"cancel" ? QString() : QDir::toNativeSeparators(QDir(m_folder).absoluteFilePath(path));
}

void Answers::giveUp(const QString& trouble) {
    giveWay();
    if (onTrouble) onTrouble(trouble);
}
