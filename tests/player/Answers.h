#pragma once

#include "base/Seams.h"

#include <QList>

#include <functional>

// Answers every message box and file dialog of a scenario from what was prepared, and keeps what was said.
class Answers {
public:
    // `folder` is where a relative path of a file dialog lies.
    explicit Answers(QString folder) : m_folder(std::move(folder)) {}

    // Puts itself into the seams.
    void install();

    void prepare(const QStringList& words);
    void prepareFile(const QString& path);

    // The oldest box not yet expected; questions before it, which were answered, may stay unexpected.
    void expectMessage(const QString& text);
    // The oldest answered question not yet expected.
    void expectQuestion(const QString& text);
    void expectNoMessage() const;

    // From now on questions are answered so that screens close without saving.
    void giveWay() { m_givesWay = true; }
    // Told at once why the scenario cannot go on, while the screen that asked still stands.
    std::function<void(const QString& trouble)> onTrouble;
    // Everything that was said, in order.
    const QStringList& said() const { return m_said; }

private:
    qint16 answer(const MessageBoxRequest& request);
    qint16 preparedAnswer(const MessageBoxRequest& request);
    QString nextFile(const QString& caption);
    void giveUp(const QString& trouble);

    QString m_folder;
    QStringList m_words;
    QStringList m_files;
    struct Box {
        QString text;
        bool isQuestion = false;
    };
    QList<Box> m_boxes; // not yet expected
    QStringList m_said;
    bool m_givesWay = false;
};
