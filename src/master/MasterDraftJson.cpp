#include "master/MasterDraftJson.h"

#include "composition/CompositionJson.h"
#include "db/RecordJson.h"
#include "master/MasterComposition.h"
#include "master/MasterManagers.h"

QJsonObject masterToJson(const MasterDraft& draft) {
    return {{u"master"_qs, RecordJson::toJson(gMstEstimateManager.fields(), draft.master)},
            {u"composition"_qs, compositionToJson(draft.composition)},
            {u"taxRate"_qs, draft.taxRate},
            {u"storedRows"_qs, draft.storedRows},
            {u"tries"_qs, RecordJson::doubtToJson(draft.doubt, masterToJson)}};
}

MasterDraft masterFromJson(const QJsonObject& object) {
    MasterDraft draft;
    draft.master = RecordJson::fromJson(gMstEstimateManager.fields(), object[u"master"].toObject());
    draft.composition = compositionFromJson(object[u"composition"].toArray(), static_cast<int>(masterTiers().size()));
    draft.taxRate = object[u"taxRate"].toDouble();
    draft.storedRows = object[u"storedRows"].toString();
    draft.doubt = RecordJson::doubtFromJson<MasterDraft>(object[u"tries"], masterFromJson);
    return draft;
}

QString titleOf(const MasterDraft& draft) {
    return u"マスタ見積 %1 %2"_qs.arg(draft.master.ProductCd, draft.master.ProductNm).trimmed();
}
