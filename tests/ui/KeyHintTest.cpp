#include "HalvaneTest.h"

#include "ui/KeyHint.h"

#include <QPushButton>
#include <QTest>

class KeyHintTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QWidget> m_form;

    QPushButton* button(const QString& caption, const QString& keys, const QSize& size) {
        auto* made = new QPushButton(caption, m_form.get());
        made->setShortcut(QKeySequence(keys));
        made->resize(size);
        return made;
    }
    static KeyHint* hintOf(const QPushButton* button) { return button->findChild<KeyHint*>(); }

private slots:
    void init() { m_form = std::make_unique<QWidget>(); }

    void theKeysStandWhereThereIsRoom() {
        const auto* wide = button(u"装具登録"_qs, u"Alt+E"_qs, {300, 30});
        const auto* tall = button(u"顧客見積 の 新規作成"_qs, u"Alt+N"_qs, {180, 80});
        const auto* narrow = button(u"自動"_qs, u"Alt+J"_qs, {50, 30});
        KeyHint::showAll(m_form.get());
        m_form->show();
        QCOMPARE(hintOf(wide)->text(), u"Alt+E"_qs);
        QVERIFY(hintOf(wide)->isVisible() && wide->rect().contains(hintOf(wide)->geometry()));
        QVERIFY(hintOf(tall)->isVisible() && tall->rect().contains(hintOf(tall)->geometry()));
        QVERIFY(hintOf(tall)->y() > tall->height() / 2);
        QVERIFY(!hintOf(narrow)->isVisible());
        QCOMPARE(narrow->toolTip(), u"Alt+J"_qs);
    }

    void aCaptionWithItsLetterAndAButtonWithoutKeysHaveNone() {
        auto* lettered = new QPushButton(u"反映(&U)"_qs, m_form.get());
        auto* plain = new QPushButton(u"％"_qs, m_form.get());
        KeyHint::showAll(m_form.get());
        QVERIFY(!hintOf(lettered) && !hintOf(plain));
    }

    void theHintFollowsTheSizeAndLetsTheMouseThrough() {
        auto* grown = button(u"終了"_qs, u"Alt+X"_qs, {40, 30});
        KeyHint::showAll(m_form.get());
        m_form->show();
        QVERIFY(!hintOf(grown)->isVisible());
        grown->resize(300, 30);
        QVERIFY(hintOf(grown)->isVisible());
        bool pressed = false;
        connect(grown, &QPushButton::clicked, this, [&] { pressed = true; });
        QTest::mouseClick(grown, Qt::LeftButton, {}, hintOf(grown)->geometry().center());
        QVERIFY(pressed);
    }
};

HALVANE_TEST(KeyHintTest)
#include "KeyHintTest.moc"
