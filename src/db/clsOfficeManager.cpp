#include "db/clsOfficeManager.h"

clsOfficeManager gOfficeManager;

clsOfficeManager::clsOfficeManager()
    : TableManager(u"企業情報"_qs, {{&clsOffice::TradeNm, u"登録名称"_qs},
                                    {&clsOffice::TradeNo, u"登録番号"_qs},
                                    {&clsOffice::Zip, u"郵便番号"_qs},
                                    {&clsOffice::Addr1, u"住所１"_qs},
                                    {&clsOffice::Addr2, u"住所２"_qs},
                                    {&clsOffice::office, u"企業名"_qs},
                                    {&clsOffice::UserNm, u"代表者名"_qs},
                                    {&clsOffice::Tel, u"電話番号"_qs},
                                    {&clsOffice::Fax, u"FAX"_qs},
                                    {&clsOffice::Email, u"EMAIL"_qs},
                                    {&clsOffice::Url, u"URL"_qs},
                                    {&clsOffice::Bank, u"振込先1"_qs},
                                    {&clsOffice::AcntNo, u"振込先2"_qs},
                                    {&clsOffice::ChkAcnt, u"当座名"_qs}}) {}

bool clsOfficeManager::GetData(int number, clsOffice& office) { return get({QString::number(number)}, office); }

void clsOfficeManager::SaveData(int number, const clsOffice& office) {
    update(office, dataColumns(), {QString::number(number)});
}
