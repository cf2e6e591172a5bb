#include "Papers.h"

#include "StepFailure.h"

void Papers::forget() {
    if (m_source.forget) m_source.forget();
}

QList<PrintedDocument> Papers::documents() const {
    if (!m_source.documents) throw StepFailure{u"this build prints nothing"_qs, u"printed documents"_qs};
    return m_source.documents();
}

QStringList Papers::pages() const {
    QStringList all;
    for (const PrintedDocument& document : documents()) all += document.pages;
    return all;
}

void Papers::expectDocuments(const QString& reportClasses) const {
    QStringList found;
    for (const PrintedDocument& document : documents()) found << document.reportClass;
    if (found.join(u' ') != reportClasses) throw StepFailure{found.join(u' '), reportClasses};
}

void Papers::expectPages(int count) const {
    if (pages().size() != count) throw StepFailure{QString::number(pages().size()), QString::number(count)};
}

void Papers::expectPage(int page, const QString& text) const {
    const QStringList all = pages();
    if (page < 1 || page > all.size())
        throw StepFailure{u"the pages 1 to %1"_qs.arg(all.size()), u"page %1"_qs.arg(page)};
    if (!all.at(page - 1).contains(text)) throw StepFailure{all.at(page - 1), text};
}

void Papers::savePdf(const QString& file) const {
    if (!m_source.savePdf) throw StepFailure{u"this build prints nothing"_qs, u"printed documents"_qs};
    m_source.savePdf(file);
}
