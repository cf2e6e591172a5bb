#include "estimates/screens/EstimateMarks.h"

#include "ui/FieldMark.h"
#include "ui/Style.h"

#include <QPainter>
#include <QRegularExpression>
#include <QTabWidget>

namespace {

enum Page { Basic, Items, MakeElements, Parts, Schedule, Print };

QIcon dot() {
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Style::remarkInk, 1.5));
    painter.setBrush(Style::remark);
    painter.drawEllipse(3, 3, 10, 10);
    return QIcon(pixmap);
}

void tell(QLabel* label, const QString& words) {
    label->setText(words);
    label->setVisible(!words.isEmpty());
}

} // namespace

EstimateMarks::EstimateMarks(QTabWidget* pages) : m_pages(pages) {
    auto* all = new QLabel;
    all->setObjectName(u"lblRemarks"_qs);
    all->setProperty("fieldMark", true);
    all->setTextFormat(Qt::PlainText);
    pages->setCornerWidget(all);
    all->hide();
}

void EstimateMarks::markPage(int page, const QString& words) const {
    static const QIcon mark = dot();
    m_pages->setTabIcon(page, words.isEmpty() ? QIcon() : mark);
}

void EstimateMarks::show(const EstimateRemarks& remarks) const {
    const auto mark = [this](const QString& name, const QString& words) {
        for (QWidget* field : m_pages->findChildren<QWidget*>(QRegularExpression(u"^%1(_\\d)?$"_qs.arg(name))))
            FieldMark::set(field, words);
    };
    mark(u"txtName1"_qs, remarks.name);
    mark(u"lblEstTotal"_qs, remarks.total);
    tell(m_pages->findChild<QLabel*>(u"lblAskRemark"_qs), remarks.claims);
    markPage(Basic, remarks.name);
    markPage(MakeElements, remarks.makeLines);
    markPage(Parts, remarks.partLines);
    markPage(Print, remarks.claims);
    tell(static_cast<QLabel*>(m_pages->cornerWidget()), remarks.all().join(u"　"_qs));
}
