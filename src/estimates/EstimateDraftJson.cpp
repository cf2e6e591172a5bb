#include "estimates/EstimateDraftJson.h"

#include "composition/CompositionJson.h"
#include "db/RecordJson.h"
#include "estimates/EstimateManagers.h"

using namespace RecordJson;

namespace {

constexpr int tiers = 1; // an estimate is priced for the age of its person

const QList<Field<ClaimRow>>& claimFields() {
    static const QList<Field<ClaimRow>> fields{{&ClaimRow::InsNo, u"法別No"_qs},
                                               {&ClaimRow::InsNm, u"法別"_qs},
                                               {&ClaimRow::ClaimNo, u"請求先No"_qs},
                                               {&ClaimRow::ClaimCd, u"請求先コード"_qs},
                                               {&ClaimRow::ClaimNm, u"請求先"_qs}};
    return fields;
}

QJsonObject claimToJson(const ClaimRow& row) {
    QJsonObject object = toJson(claimFields(), row);
    object[u"ask"] = toJson(gCsEstAskManager.fields(), row.ask);
    return object;
}

ClaimRow claimFromJson(const QJsonValue& value) {
    ClaimRow row = fromJson(claimFields(), value.toObject());
    row.ask = fromJson(gCsEstAskManager.fields(), value[u"ask"].toObject());
    return row;
}

} // namespace

QJsonObject estimateToJson(const EstimateDraft& draft) {
    return {{u"customer"_qs, toJson(gCustomerManager.fields(), draft.customer)},
            {u"chart"_qs, toJson(gChartManager.fields(), draft.chart)},
            {u"orderCd"_qs, draft.orderCd},
            {u"claims"_qs, listToJson(draft.claims, claimToJson)},
            {u"estimate"_qs, toJson(gCsEstimateManager.fields(), draft.estimate)},
            {u"composition"_qs, compositionToJson(draft.composition)},
            {u"partialPayment"_qs, draft.partialPayment},
            {u"uncollected"_qs, draft.uncollected},
            {u"storedRows"_qs, draft.storedRows},
            {u"tries"_qs, doubtToJson(draft.doubt, estimateToJson)}};
}

EstimateDraft estimateFromJson(const QJsonObject& object) {
    EstimateDraft draft;
    draft.customer = fromJson(gCustomerManager.fields(), object[u"customer"].toObject());
    draft.chart = fromJson(gChartManager.fields(), object[u"chart"].toObject());
    draft.orderCd = object[u"orderCd"].toString();
    draft.claims = listFromJson<ClaimRow>(object[u"claims"], claimFromJson);
    draft.estimate = fromJson(gCsEstimateManager.fields(), object[u"estimate"].toObject());
    draft.composition = compositionFromJson(object[u"composition"].toArray(), tiers);
    draft.partialPayment = object[u"partialPayment"].toString();
    draft.uncollected = object[u"uncollected"].toBool();
    draft.storedRows = object[u"storedRows"].toString();
    draft.doubt = doubtFromJson<EstimateDraft>(object[u"tries"], estimateFromJson);
    return draft;
}

QString titleOf(const EstimateDraft& draft) {
    const QString number = draft.estimate.EstNo.isEmpty() ? u"新規"_qs : draft.estimate.EstNo;
    const QString name = (draft.customer.CustNm1 + u' ' + draft.customer.CustNm2).trimmed();
    return u"顧客見積（%1）%2"_qs.arg(number, name.isEmpty() ? draft.estimate.EstNm : name);
}
