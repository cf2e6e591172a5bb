#include "ui/Style.h"

#include <QApplication>
#include <QFontDatabase>
#include <QLabel>
#include <QLibraryInfo>
#include <QPainter>
#include <QProxyStyle>
#include <QPushButton>
#include <QToolTip>
#include <QTranslator>

namespace {

constexpr int margin = 12;
constexpr int gap = 8;

// Fusion with one grid of margins and gaps.
class HouseStyle : public QProxyStyle {
public:
    HouseStyle() : QProxyStyle(u"Fusion"_qs) {}

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        switch (metric) {
        case PM_LayoutLeftMargin:
        case PM_LayoutRightMargin:
        case PM_LayoutTopMargin:
        case PM_LayoutBottomMargin:
            return margin;
        case PM_LayoutHorizontalSpacing:
        case PM_LayoutVerticalSpacing:
            return gap;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
        }
    }

    // Flat: a bar as wide as a window takes Fusion longer to paint than the rows of a list.
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override {
        const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
        if (control != CC_ScrollBar || !bar) return QProxyStyle::drawComplexControl(control, option, painter, widget);
        painter->fillRect(bar->rect, Style::heading);
        for (const auto& [part, element, shown] :
             {std::tuple{SC_ScrollBarSubLine, PE_IndicatorArrowUp, PE_IndicatorArrowLeft},
              std::tuple{SC_ScrollBarAddLine, PE_IndicatorArrowDown, PE_IndicatorArrowRight}}) {
            QStyleOption arrow = *bar;
            arrow.rect = subControlRect(CC_ScrollBar, bar, part, widget);
            drawPrimitive(bar->orientation == Qt::Vertical ? element : shown, &arrow, painter, widget);
        }
        const bool held = (bar->activeSubControls & SC_ScrollBarSlider) && (bar->state & State_Sunken);
        const QRect slider = subControlRect(CC_ScrollBar, bar, SC_ScrollBarSlider, widget).adjusted(2, 2, -2, -2);
        painter->fillRect(slider, held ? Style::accent : Style::line);
    }
};

// Every colour of every group: one that is left open comes from the desktop's theme, which may be dark.
QPalette calmPalette() {
    const QColor button(0xE9, 0xEE, 0xF2);
    QPalette palette(Style::ink, button, Qt::white, QColor(0x95, 0xA0, 0xAB), Style::line, Style::ink, Qt::white,
                     Style::field, Style::paper);
    palette.setColor(QPalette::Midlight, QColor(0xF1, 0xF4, 0xF6));
    palette.setColor(QPalette::Shadow, QColor(0x55, 0x60, 0x6B));
    palette.setColor(QPalette::AlternateBase, QColor(0xF8, 0xFA, 0xFB));
    palette.setColor(QPalette::Link, Style::accent);
    palette.setColor(QPalette::LinkVisited, Style::accent);
    palette.setColor(QPalette::ToolTipBase, Style::focusField);
    palette.setColor(QPalette::ToolTipText, Style::ink);
    palette.setColor(QPalette::PlaceholderText, QColor(0x8E, 0x98, 0xA2));
    palette.setColor(QPalette::Highlight, Style::accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, Style::ink);
        palette.setColor(QPalette::Disabled, role, QColor(0x8E, 0x98, 0xA2));
    }
    // What cannot be changed is still there to be read, as on a screen opened to delete.
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(0x5B, 0x66, 0x70));
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0xEC, 0xEF, 0xF2));
    return palette;
}

QString sheet() {
    return QStringLiteral(R"(
        QLineEdit, QPlainTextEdit, QComboBox { background: %1; border: 1px solid %2; border-radius: 3px;
            padding: 2px 4px; min-height: 1.15em; selection-background-color: %3; }
        QLineEdit:read-only, QPlainTextEdit:read-only { background: %4; border-color: transparent;
            border-bottom-color: %2; border-radius: 0; }
        QLineEdit:disabled, QPlainTextEdit:disabled, QComboBox:disabled { background: #ECEFF2; color: #5B6670; }
        QLineEdit:focus, QPlainTextEdit:focus, QComboBox:focus { background: %5; border: 2px solid %3;
            padding: 1px 3px; }
        QComboBox::drop-down { border: none; width: 1.6em; }
        QComboBox QLineEdit, QAbstractItemView QLineEdit, QAbstractItemView QComboBox { border: none;
            border-radius: 0; padding: 0 2px; min-height: 0; }
        QPushButton { background: #FBFCFD; border: 1px solid %2; border-radius: 4px; padding: 3px 10px;
            min-height: 1.1em; }
        QPushButton:hover { background: %6; }
        QPushButton:pressed { background: #D3DEE8; }
        QPushButton:disabled { color: #9AA4AE; background: #EEF1F3; border-color: #D5DBE0; }
        QPushButton:focus, QPushButton:default { border: 2px solid %3; padding: 2px 9px; }
        QCheckBox:focus, QRadioButton:focus { color: %3; text-decoration: underline; }
        QGroupBox { border: 1px solid %2; border-radius: 5px; margin-top: 0.8em; padding-top: 0.4em; }
        QGroupBox::title { subcontrol-origin: margin; left: 10px; padding: 0 4px; color: %3; }
        QTableView { border: 1px solid %2; gridline-color: #DCE2E8; selection-background-color: %8;
            selection-color: %7; }
        QTableView:focus { border: 2px solid %3; }
        QHeaderView::section { background: %6; border: none; border-right: 1px solid %2;
            border-bottom: 1px solid %2; padding: 3px 6px; }
        QTabWidget::pane { border: 1px solid %2; border-radius: 4px; }
        QTabBar::tab { background: %6; border: 1px solid %2; padding: 4px 14px; margin-right: 2px;
            border-top-left-radius: 4px; border-top-right-radius: 4px; }
        QTabBar::tab:selected { background: #FFFFFF; color: %3; border-bottom-color: #FFFFFF; }
        QTabBar::tab:focus { text-decoration: underline; }
        QLabel[shownValue="true"] { border: 1px solid transparent; border-bottom-color: %2; padding: 1px 5px;
            min-height: 1.2em; }
        QLabel[shownValue="true"]:disabled { color: #5B6670; }
        QLabel[fieldMark="true"] { background: %9; color: %10; border-radius: 3px; padding: 0 5px; }
        QLabel[grandTotal="true"] { font-weight: bold; border-bottom: 1px solid %3; }
        QLabel[heading="true"] { color: #4A5866; }
        QLabel[picture="true"] { background: #FFFFFF; border: 1px solid %2; border-radius: 3px; }
        #lblModeTitle { background: %3; color: white; font-weight: bold; border-radius: 4px; padding: 2px 14px; }
    )")
        .arg(Style::field.name(), Style::line.name(), Style::accent.name(), Style::paper.name(),
             Style::focusField.name(), Style::heading.name(), Style::ink.name(), Style::chosen.name(),
             Style::remark.name(), Style::remarkInk.name());
}

void loadJapaneseTexts(QApplication& application) {
    QLocale::setDefault(QLocale(QLocale::Japanese, QLocale::Japan));
    auto* translator = new QTranslator(&application);
    if (translator->load(u"qtbase_ja"_qs, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        application.installTranslator(translator);
}

} // namespace

void Style::apply(QApplication& application) {
    loadJapaneseTexts(application);
    application.setStyle(new HouseStyle);
    QFont font(u"Noto Sans CJK JP"_qs, 10);
    font.setStyleHint(QFont::SansSerif);
    application.setFont(font);
    const QPalette palette = calmPalette();
    application.setPalette(palette);
    QToolTip::setPalette(palette); // desktops have one of their own for these
    QApplication::setPalette(palette, "QMenu");
    application.setStyleSheet(sheet());
}

void Style::arrange(QWidget* form) {
    for (QLabel* label : form->findChildren<QLabel*>()) {
        label->setTextFormat(Qt::PlainText); // a name may hold any sign
        if (label->text().endsWith(u'：')) label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    for (QPushButton* button : form->findChildren<QPushButton*>()) button->setAutoDefault(false);
}

QIcon Style::calendarIcon() {
    QPixmap pixmap(32, 32);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setPen(QPen(Style::accent, 2));
    painter.drawRoundedRect(4, 6, 24, 22, 3, 3);
    painter.fillRect(4, 6, 24, 6, Style::accent);
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 4; ++column) painter.fillRect(8 + column * 5, 15 + row * 4, 3, 2, Style::accent);
    return QIcon(pixmap);
}

QFont Style::gridFont() {
    QFont font = QApplication::font();
    font.setFamilies({u"BIZ UDGothic"_qs, u"BIZ UDゴシック"_qs, font.family()});
    return font;
}

int Style::charactersWide(int characters) {
    return QFontMetrics(QApplication::font()).horizontalAdvance(u'0') * characters + 2 * gap;
}
