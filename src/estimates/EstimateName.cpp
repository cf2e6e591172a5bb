#include "estimates/EstimateName.h"

#include "base/Text.h"

namespace {

// A star stands for "any" in the price list and is no text of its own.
bool isUsable(const QString& text) { return !text.isEmpty() && Text::toHalfWidth(text.left(1)) != u"*"; }

QString usable(const QString& text) { return isUsable(text) ? text : QString(); }

class NameBuilder {
public:
    NameBuilder(const QString& side, const NameSettings& settings)
        : m_side(settings.side == u"1" && side != u"なし" ? side : QString()), m_settings(settings) {}

    void add(const NamedItem& item) {
        if (!isUsable(item.item)) return;
        const QString part = repairOf(item) + wordsOf(item);
        if (m_count++ > 0) m_name += joint();
        m_name += part;
    }

    const QString& name() const { return m_name; }

private:
    QString repairOf(const NamedItem& item) const {
        const bool named =
            m_settings.grantRepair == u"1" || (m_settings.grantRepair == u"3" && item.grantRepair == u"修理");
        return named && isUsable(item.grantRepair) ? u'(' + item.grantRepair + u')' : QString();
    }

    QString wordsOf(const NamedItem& item) {
        static const QStringList orthoses{u"下肢装具"_qs, u"上肢装具"_qs, u"体幹装具"_qs, u"靴型装具"_qs,
                                          u"座位保持装置"_qs};
        if (item.item.startsWith(u'殻')) return u"殻構造"_qs + m_side + usable(item.name) + usable(item.form);
        if (item.item.startsWith(u'骨')) return u"骨格構造"_qs + m_side + usable(item.name) + usable(item.form);
        if (orthoses.contains(item.item)) return orthosis(item);
        return usable(item.name) + usable(item.form) + usable(item.item) + m_side;
    }

    QString orthosis(const NamedItem& item) {
        m_legSeen = m_legSeen || item.item == u"下肢装具";
        m_shoeSeen = m_shoeSeen || item.item == u"靴型装具";
        const bool sided = item.item != u"体幹装具" && item.item != u"座位保持装置";
        QString words = (sided ? m_side : QString()) + usable(item.name);
        if (item.item == u"靴型装具" || item.item == u"座位保持装置") words += item.item;
        if (m_settings.pickStyle == u"1") words += usable(item.pickStyle);
        return words;
    }

    // A brace with a shoe becomes one article, once.
    QString joint() {
        if (!m_legSeen || !m_shoeSeen) return u"および"_qs;
        m_legSeen = m_shoeSeen = false;
        return u"付き"_qs;
    }

    QString m_side;
    const NameSettings& m_settings;
    QString m_name;
    int m_count = 0;
    bool m_legSeen = false;
    bool m_shoeSeen = false;
};

} // namespace

QString automaticName(const QList<NamedItem>& items, const QString& side, const NameSettings& settings) {
    NameBuilder builder(side, settings);
    for (const NamedItem& item : items) builder.add(item);
    return builder.name();
}
