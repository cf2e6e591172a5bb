#pragma once

#include <QString>
#include <QStringList>

#include <functional>

// One document that a screen printed or previewed: its layout class and the text of its pages.
struct PrintedDocument {
    QString reportClass;
    QStringList pages;
};

// Where the player learns what was printed. The report engine fills it; it is empty until then.
struct PaperSource {
    std::function<QList<PrintedDocument>()> documents;
    std::function<void()> forget;
    // Writes the last printed pages, also those of an earlier step; raises a StepFailure when nothing was printed.
    std::function<void(const QString& file)> savePdf;
};

// The documents since the last acting step. Raises a StepFailure for what does not hold.
class Papers {
public:
    explicit Papers(PaperSource source) : m_source(std::move(source)) {}

    void forget();
    void expectDocuments(const QString& reportClasses) const;
    void expectPages(int count) const;
    void expectPage(int page, const QString& text) const;
    void savePdf(const QString& file) const;

private:
    QList<PrintedDocument> documents() const;
    QStringList pages() const;

    PaperSource m_source;
};
