#include "master/MasterListFilter.h"

#include "db/SqlAlike.h"
#include "db/SqlKeys.h"
#include "master/MasterManagers.h"

namespace {

const QStringList orthoses{u"下肢装具"_qs, u"靴型装具"_qs, u"体幹装具"_qs, u"上肢装具"_qs};

SqlColumn itemColumn(QString clsMstItem::*member) { return gMstItemManager.column(member); }

SqlTerm groupTerm(int group) {
    const SqlColumn item = itemColumn(&clsMstItem::Item);
    switch (group) {
    case MasterListFilter::Prostheses:
        return SqlAnyOf({SqlStartsWith(item, u"殻"_qs), SqlStartsWith(item, u"骨"_qs)});
    case MasterListFilter::Orthoses:
        return SqlOneOf(item, orthoses);
    case MasterListFilter::Seating:
        return SqlEqual(item, u"座位保持装置"_qs);
    case MasterListFilter::Others:
        return SqlAnyOf({groupTerm(MasterListFilter::Prostheses), groupTerm(MasterListFilter::Orthoses),
                         groupTerm(MasterListFilter::Seating)})
            .wrapped(u"NOT "_qs, {});
    default:
        return {};
    }
}

} // namespace

SqlTerm MasterListFilter::items() const {
    const SqlTerm asked = SqlAllOf({SqlContains(itemColumn(&clsMstItem::Item), Item),
                                    SqlContains(itemColumn(&clsMstItem::PickKbn), PickKbn),
                                    SqlContains(itemColumn(&clsMstItem::Name), Name),
                                    SqlContains(itemColumn(&clsMstItem::Form), Form), groupTerm(group)});
    return asked.wrapped(u" [製品ID] IN (SELECT DISTINCT [製品ID] FROM [マスタ見積種目] WHERE "_qs, u")"_qs);
}

SqlTerm MasterListFilter::condition() const {
    return SqlAllOf({SqlStartsWith(gMstEstimateManager.column(&clsMstEstimate::ProductCd), ProductCd),
                     SqlContainsAlike(gMstEstimateManager.column(&clsMstEstimate::ProductNm), ProductNm), items()});
}
