#include "HalvaneTest.h"
#include "support/Raised.h"

#include "ui/Manual.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>

// The manual as it is shipped: built beside this test.
class ManualTest : public QObject {
    Q_OBJECT

private:
    const QDir m_pages{ManualPages::folder()};

    QString page(const QString& name) const {
        QFile file(m_pages.filePath(name));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }
    static QSet<QString> anchorsIn(const QString& html) {
        static const QRegularExpression anchor(u"<a name=\"([^\"]*)\""_qs);
        QSet<QString> names;
        for (auto found = anchor.globalMatch(html); found.hasNext();) names << found.next().captured(1);
        return names;
    }
    // What a link or a place of the manual leads to is there.
    bool leadsSomewhere(const QString& from, const QString& link) const {
        const QString name = link.section(u'#', 0, 0);
        const QString html = page(name.isEmpty() ? from : name);
        return !html.isEmpty() && (!link.contains(u'#') || anchorsIn(html).contains(link.section(u'#', 1)));
    }
    static QStringList screens() {
        QStringList names;
        QDirIterator forms(QStringLiteral(HALVANE_SOURCE_DIR) + u"/src"_qs, {u"frm*.ui"_qs}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (forms.hasNext()) names << QFileInfo(forms.next()).completeBaseName();
        return names;
    }
    static frmManual* manualOf(const QWidget& screen) { return screen.findChild<frmManual*>(); }

private slots:
    void everyLinkLeadsSomewhere() {
        static const QRegularExpression link(u"<a href=\"([^\"]*)\""_qs);
        const QStringList names = m_pages.entryList({u"*.html"_qs});
        QVERIFY(names.size() > 10);
        for (const QString& name : names) {
            const QString html = page(name);
            for (auto found = link.globalMatch(html); found.hasNext();) {
                const QString target = QUrl::fromPercentEncoding(found.next().captured(1).toUtf8());
                QVERIFY2(leadsSomewhere(name, target), qUtf8Printable(name + u": "_qs + target));
            }
        }
    }

    // A piece of a page that the reader of Markdown does not understand may take the rest with it.
    void everyHeadingOfThePagesIsThere() {
        const QDir sources(QStringLiteral(HALVANE_SOURCE_DIR) + u"/docs/manual"_qs);
        for (const QString& name : sources.entryList({u"*.md"_qs})) {
            QFile file(sources.filePath(name));
            QVERIFY(file.open(QIODevice::ReadOnly));
            QTextDocument page;
            page.setHtml(this->page(name.chopped(3) + u".html"_qs));
            const QString shown = page.toPlainText();
            for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n'))
                if (line.startsWith(u'#'))
                    QVERIFY2(shown.contains(line.section(u' ', 1)), qUtf8Printable(name + u": "_qs + line));
        }
    }

    void everyPictureIsShipped() {
        static const QRegularExpression picture(u"<img src=\"([^\"]*)\""_qs);
        int count = 0;
        for (const QString& name : m_pages.entryList({u"*.html"_qs})) {
            const QString html = page(name);
            for (auto found = picture.globalMatch(html); found.hasNext(); ++count) {
                const QString file = found.next().captured(1);
                if (!QFile::exists(QStringLiteral(HALVANE_SOURCE_DIR) + u"/docs/manual/"_qs + file))
                    continue; // to be taken
                QVERIFY2(QFile::exists(m_pages.filePath(file)), qUtf8Printable(name + u": "_qs + file));
            }
        }
        QVERIFY(count > 10);
    }

    void everyScreenHasItsPlace() {
        const QStringList dialogs{u"frmFirstStart"_qs}; // there is no office to tell of yet
        for (const QString& name : screens()) {
            if (dialogs.contains(name)) continue;
            QWidget screen;
            screen.setObjectName(name);
            const QString place = ManualPages::placeOf(&screen, m_pages.path());
            QVERIFY2(place != u"README.html"_qs, qUtf8Printable(name));
            QVERIFY2(leadsSomewhere({}, place), qUtf8Printable(name + u": "_qs + place));
        }
    }

    void theInnermostPartThatIsToldOfCounts() {
        QWidget screen, page(&screen), field(&page);
        screen.setObjectName(u"frmCsEstimate"_qs);
        page.setObjectName(u"fraData_1"_qs);
        field.setObjectName(u"flxItem"_qs);
        QVERIFY(ManualPages::placeOf(&field, m_pages.path()).startsWith(u"一件の受注.html#2-"_qs));
        page.setObjectName(u"fraOther"_qs);
        QVERIFY(ManualPages::placeOf(&field, m_pages.path()).startsWith(u"一件の受注.html#1-"_qs));
        screen.setObjectName(u"frmUnknown"_qs);
        QCOMPARE(ManualPages::placeOf(&field, m_pages.path()), u"README.html"_qs);
    }

    void itOpensBesideItsScreenAtThePlaceAndTurns() {
        QWidget screen;
        screen.setObjectName(u"frmStWorkPlan"_qs);
        screen.show();
        frmManual::openAt(&screen);
        QVERIFY(manualOf(screen)->isVisible() && !manualOf(screen)->isModal());
        QCOMPARE(manualOf(screen)->place(), u"統計.html#予定表"_qs);
        screen.setObjectName(u"frmStOrderSales"_qs);
        frmManual::openAt(&screen);
        QCOMPARE(screen.findChildren<frmManual*>().size(), 1);
        QCOMPARE(manualOf(screen)->place(), u"統計.html#受注先別売上"_qs);
        manualOf(screen)->findChild<QPushButton*>(u"cmdBack"_qs)->click();
        QCOMPARE(manualOf(screen)->place(), u"統計.html#予定表"_qs);
        manualOf(screen)->findChild<QPushButton*>(u"cmdKeys"_qs)->click();
        QCOMPARE(manualOf(screen)->place(), u"キー操作.html"_qs);
        QTest::keyClick(manualOf(screen), Qt::Key_Escape);
        QVERIFY(!manualOf(screen)->isVisible());
        if (const QByteArray place = qgetenv("HALVANE_PICTURES"); !place.isEmpty()) {
            manualOf(screen)->show();
            manualOf(screen)->grab().save(QString::fromLocal8Bit(place) + u"/manual.png"_qs);
        }
    }

    void aWordIsFoundAndFoundAgainFromTheTop() {
        QWidget screen;
        screen.setObjectName(u"frmMenu"_qs);
        frmManual::openAt(&screen);
        auto* pages = manualOf(screen)->findChild<QTextBrowser*>(u"txtPage"_qs);
        const auto find = [&] { manualOf(screen)->findChild<QPushButton*>(u"cmdFind"_qs)->click(); };
        find();
        QVERIFY(!pages->textCursor().hasSelection());
        manualOf(screen)->findChild<QLineEdit*>(u"txtFind"_qs)->setText(u"Halvane.ini"_qs);
        QList<int> places;
        do {
            find();
            QCOMPARE(pages->textCursor().selectedText(), u"Halvane.ini"_qs);
            places << pages->textCursor().selectionStart();
        } while (places.size() < 100 && (places.size() < 2 || places.last() > places.first()));
        QCOMPARE(places.last(), places.first());
    }
};

HALVANE_TEST(ManualTest)
#include "ManualTest.moc"
