#include "composition/CompositionName.h"

#include "base/Text.h"
#include "composition/ItemRules.h"
#include "db/clsSysSettingManager.h"

namespace {

// A star stands for "any" in the price list and is no text of its own.
bool isUsable(const QString& text) { return !text.isEmpty() && Text::toHalfWidth(text.left(1)) != u"*"; }

QString usable(const QString& text) { return isUsable(text) ? text : QString(); }

// An item with the texts that its cells show.
struct NamedItem {
    explicit NamedItem(const QStringList& shown)
        : item(shown.at(0)), name(usable(shown.at(2))), form(usable(shown.at(3))), pickStyle(usable(shown.at(4))),
          grantRepair(usable(shown.at(5))) {}

    QString item, name, form, pickStyle, grantRepair;
};

class NameBuilder {
public:
    explicit NameBuilder(const NameRules& rules) : m_rules(rules) {}

    void add(const NamedItem& item) {
        if (!isUsable(item.item)) return;
        const QString part = repairOf(item) + wordsOf(item);
        if (m_count++ > 0) m_name += joint();
        m_name += part;
    }

    const QString& name() const { return m_name; }

private:
    QString repairOf(const NamedItem& item) const {
        const bool named = m_rules.grantRepair == u"1" || (m_rules.grantRepair == u"3" && item.grantRepair == u"修理");
        return named && !item.grantRepair.isEmpty() ? u'(' + item.grantRepair + u')' : QString();
    }

    QString wordsOf(const NamedItem& item) {
        static const QStringList orthoses{u"下肢装具"_qs, u"上肢装具"_qs, u"体幹装具"_qs, u"靴型装具"_qs,
                                          u"座位保持装置"_qs};
        if (item.item.startsWith(u'殻')) return u"殻構造"_qs + m_rules.side + item.name + item.form;
        if (item.item.startsWith(u'骨')) return u"骨格構造"_qs + m_rules.side + item.name + item.form;
        if (orthoses.contains(item.item)) return orthosis(item);
        return item.name + item.form + item.item + m_rules.side;
    }

    QString orthosis(const NamedItem& item) {
        m_legSeen = m_legSeen || item.item == u"下肢装具";
        m_shoeSeen = m_shoeSeen || item.item == u"靴型装具";
        const bool sided = item.item != u"体幹装具" && item.item != u"座位保持装置";
        QString words = (sided ? m_rules.side : QString()) + item.name;
        if (item.item == u"靴型装具" || item.item == u"座位保持装置") words += item.item;
        if (m_rules.pickStyle) words += item.pickStyle;
        return words;
    }

    // A brace with a shoe becomes one article, once.
    QString joint() {
        if (!m_rules.joinsShoe || !m_legSeen || !m_shoeSeen) return u"および"_qs;
        m_legSeen = m_shoeSeen = false;
        return u"付き"_qs;
    }

    const NameRules& m_rules;
    QString m_name;
    int m_count = 0;
    bool m_legSeen = false;
    bool m_shoeSeen = false;
};

} // namespace

NameRules officeNameRules(const QString& side) {
    NameRules rules;
    if (gSysSettingManager.value(Setting::NameSide) == u"1" && side != u"なし") rules.side = side;
    rules.grantRepair = gSysSettingManager.value(Setting::NameGrantRepair);
    rules.pickStyle = gSysSettingManager.value(Setting::NamePickStyle) == u"1";
    return rules;
}

QString automaticName(const Composition& composition, const NameRules& rules) {
    NameBuilder builder(rules);
    for (const ComposedItem& item : composition.items()) builder.add(NamedItem(ItemRules::shownTexts(item.cells)));
    return builder.name();
}
