#pragma once

#include "base/Money.h"

#include <QString>

// Turns the description of an estimate line into its price. The result code is written only when there is something
// to tell, so the caller clears it before each call: 1 no row matched, 2 several rows matched with different prices
// (the first one counts). A missing argument gives 0 yen and leaves the code alone.

// One make element line: 基本価格 and 調整加算 of wheelchairs from `価格基本`, other 加算 from `価格加算`, all else
// from `価格要素`. `AgeKbn` is 小人, 中人, or anything else for 大人.
Money GetElementPrice(const QString& Item, const QString& PickKbn, const QString& Name, const QString& Form,
                      const QString& PickStyle, const QString& MakeElmt, const QString& Materials,
                      const QString& AgeKbn, qint16& ResultCode);

// One completed part, by `価格部品`; an empty code finds a row without one.
Money GetPartsPrice(const QString& Item, const QString& PartsNm, const QString& Form, const QString& PartsCd,
                    qint16& ResultCode);

// The amounts of an estimate in whole yen. The discounts are the percentages that remain payable, `Tax` is a
// percentage. Raises an overflow error beyond 32 bits.
void CalcAmounts(qint32 MkElmTotal, qint32 CpElmTotal, qint32 Discount1, qint32 Discount2, qint32 Discount3, double Tax,
                 qint32& MkElmAmount, qint32& CpElmAmount, qint32& TaxAmount, qint32& Total);

// True for the 種目 whose base price depends on 採型 or 採寸.
bool hasPickStyle(const QString& Item);
// True for 車椅子, 電動車椅子 and their spellings.
bool isWheelchair(const QString& Item);
