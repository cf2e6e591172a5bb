#!/usr/bin/env python3
"""Writes the sample office: every CSV file beside this script and the yearly price files in kakaku/.

Reads ../seed, draws with a fixed seed, checks what it made, and only then writes. Two runs give the same bytes.
Names, addresses, makers, part codes and prices are invented.
"""

import csv
import datetime
import io
import pathlib
import random
import sys

# A folder of data is no place for compiled modules.
sys.dont_write_bytecode = True

from sample_office import (  # noqa: E402
    DOCTORS, EQUIPMENT, MAKERS_IN_CHARGE, MASTERS, OFFICE, ORDERERS, OWN_SHARE_CAP, PAYERS, PEOPLE, PLANS, POSTAL,
    PRODUCTS, SIDE_PAYER, STAFF, VOUCHER_LAWS)
from sample_prices import (  # noqa: E402
    ADDITIONS, CHAIR_APPLY, CODE_STEP, ELEMENTS, FORM_STEP, ITEMS, MAKERS, MAKER_FIELDS, MEASURE_SHARE,
    ORTHOSIS, PARTS, PART_NOTES, SHELL, WHEELCHAIR)

HERE = pathlib.Path(__file__).resolve().parent
SEED_DIR = HERE.parent / "seed"

# The office's "today": work that would happen later has not happened yet.
TODAY = datetime.date(2026, 10, 30)
FIRST_DAY = datetime.date(2024, 4, 3)
# From this day on estimates carry the prices in force; older ones kept those of the list before it.
PRICE_CHANGE = datetime.date(2026, 4, 1)
ESTIMATE_COUNT = 120

rng = random.Random(101)

# ------------------------------------------------------------------------------------------------------------------
# Columns and sizes
# ------------------------------------------------------------------------------------------------------------------

COLUMNS = {
    "企業情報": "番号 登録名称 登録番号 企業名 代表者名 郵便番号 住所１ 住所２ 電話番号 FAX EMAIL URL 振込先1 振込先2 当座名",
    "受注先": "受注先No 受注先コード 受注先 郵便番号 住所１ 住所２ 電話 FAX EMAIL URL 代表者氏名 担当者氏名 順番 有効Flg",
    "主治医": "主治医No 主治医コード 主治医 受注先No 順番 有効Flg",
    "請求先": "請求先No 請求先コード 請求先 郵便番号 住所１ 住所２ 電話 FAX EMAIL URL 代表者氏名 担当者氏名 順番 有効Flg",
    "法別請求対応": "法別請求先No 法別No 請求先No 順番",
    "製作担当者": "製作担当者No 製作担当者コード 製作担当者 順番 有効Flg",
    "スタッフ": "スタッフNo スタッフコード 従業員",
    "装具": "装具No 装具 順番 有効Flg",
    "顧客情報": "顧客ID 顧客枝番 顧客番号 名前1 名前2 フリガナ1 フリガナ2 生年月日 性別 郵便番号 都道府県 市区郡 住所1 住所2 電話 FAX EMAIL "
                "価格区分 被保険者名 本人区分 備考 登録日 更新日 編集者No",
    "顧客カルテ": "顧客ID 顧客枝番 カルテNo カルテ番号 病名原因 左右区分 入通院開始日 受注先No 受注先 主治医No 主治医 備考 登録日 更新日 編集者No",
    "顧客保険": "顧客ID 顧客枝番 項番 法別No",
    "顧客見積情報": "見積ID 見積番号 顧客ID 顧客枝番 カルテNo 見積名称 見積作成日 処理区分 製品コード 価格設定年度 部類識別 骨格殻別 受付日 採型日 "
                    "仮合予定日 仮合実績日 完成予定日 完成実績日 納品予定日 納品実績日 請求予定日 請求完了日 入金予定日 入金完了日 券受日 交付券番号 "
                    "耐用年数 耐用完了日 製作担当者No 製作担当者 担当義肢装具士No 担当義肢装具士名 自費請求先 合計 合計加算 見積総合計 基本割引１ 基本割引２ "
                    "部品割引 値引額 見積書発行日 内訳書発行日 明細書発行日 意見書発行日 売掛区分 品名 装具名 支払法名 備考 登録日 更新日 編集者No",
    "顧客見積種目": "見積ID 見積種目No 種目 採型区分 名称 形式 採型採寸 交付修理 製作要素小計 完成要素小計",
    "顧客見積基本製作要素": "見積ID 見積種目No 要素No 製作要素 原材料等 数量 価格",
    "顧客見積完成要素": "見積ID 見積種目No 要素No 部品コード 部品名称 形式等 メーカー名 数量 価格",
    "顧客見積請求": "見積ID 請求No 法別No 請求先No 請求先 請求日 請求金額 請求書発行日 入金日 領収金額 領収書発行日",
    "マスタ見積情報": "製品ID 製品コード 製品名称 小人価格 中人価格 大人価格 価格設定年度 備考 登録日 更新日 編集者No",
    "マスタ見積種目": "製品ID 製品種目No 種目 採型区分 名称 形式 採型採寸 交付修理",
    "マスタ見積基本製作要素": "製品ID 製品種目No 要素No 製作要素 原材料等 数量 小人価格 中人価格 大人価格",
    "マスタ見積完成要素": "製品ID 製品種目No 要素No 部品コード 部品名称 形式等 メーカー名 数量 価格",
    "採番": "項目名 最終値 桁 年度",
    "郵便番号簿": "郵便番号 都道府県名 市区町村名 町域名",
}
COLUMNS = {table: text.split() for table, text in COLUMNS.items()}
KEYS = {
    "企業情報": 1, "受注先": 1, "主治医": 1, "請求先": 1, "法別請求対応": 1, "製作担当者": 1, "スタッフ": 1, "装具": 1, "顧客情報": 2, "顧客カルテ": 3,
    "顧客保険": 3, "顧客見積情報": 1, "顧客見積種目": 2, "顧客見積基本製作要素": 3, "顧客見積完成要素": 3, "顧客見積請求": 2,
    "マスタ見積情報": 1, "マスタ見積種目": 2, "マスタ見積基本製作要素": 3, "マスタ見積完成要素": 3, "採番": 1, "郵便番号簿": 4,
}

PRICE_COLUMNS = {
    "Item": "ID 種目 採型区分 名称 形式",
    "Base": "ID 順番 種目 採型区分 名称 形式 適用 採型採寸区分 新価格１ 新価格２ 新価格３ 旧価格１ 旧価格２ 旧価格３",
    "Add": "ID 順番 種目 採型区分 加算要素 交付修理区分 新価格 旧価格",
    "Element": "ID 順番 種目 採型区分 製作要素 原材料 新価格１ 新価格２ 新価格３ 旧価格１ 旧価格２ 旧価格３",
    "Parts": "ID 種目 名称 形式 メーカ名 部品コード 使用設定 使用設定文字 使用設定ダミー 備考 新価格 旧価格",
}
PRICE_COLUMNS = {name: text.split() for name, text in PRICE_COLUMNS.items()}
# The first number of a user's own price row; supplied rows stay below.
OWN_ROWS_FROM = 9000000

PRICE_SIZES = {"種目": 18, "採型区分": 12, "名称": 20, "形式": 34, "製作要素": 20, "原材料": 50, "メーカ名": 16, "部品コード": 16, "加算要素": 50}
SIZES = {
    "顧客情報": {"顧客番号": 10, "都道府県": 8, "市区郡": 12, "住所1": 40, "住所2": 40, "被保険者名": 20},
    "顧客カルテ": {"病名原因": 60, "受注先": 40, "主治医": 40},
    "顧客見積情報": {"見積番号": 12, "見積名称": 50, "担当義肢装具士名": 40, "製作担当者": 40},
    "顧客見積種目": {"種目": 18, "採型区分": 12, "名称": 20, "形式": 34},
    "顧客見積基本製作要素": {"製作要素": 20, "原材料等": 50},
    "顧客見積完成要素": {"部品名称": 20, "形式等": 34, "メーカー名": 16, "部品コード": 16},
    "顧客見積請求": {"請求先": 40},
    "マスタ見積情報": {"製品コード": 12, "製品名称": 50},
}


def fail(text):
    sys.exit("make_sample: " + text)


def parts_of(line, count):
    fields = line.split("|")
    if len(fields) != count:
        fail("%d fields expected: %s" % (count, line))
    return fields


def lines_of(text):
    return [line for line in text.strip().split("\n") if line]


# ------------------------------------------------------------------------------------------------------------------
# The price list
# ------------------------------------------------------------------------------------------------------------------

def ten(amount):
    """A price as the list prints it: whole tens of yen."""
    return int(amount / 10 + 0.5) * 10


def tiers(amount, aged):
    """大人, 中人, 小人; articles that do not follow the body's size cost the same for all."""
    if not aged:
        return [ten(amount)] * 3
    return [ten(amount), ten(amount * 0.93), ten(amount * 0.86)]


def with_old(prices, share):
    return prices + [ten(price * share) for price in prices]


def codes_of(item, text):
    """Expands "E-1..E-3 E-9", "＊" and "*" into the 採型区分 of that 種目, in list order."""
    known = list(dict.fromkeys(parts_of(line, 4)[0] for line in lines_of(ITEMS[item])))
    if text == "*":
        return known
    codes = []
    for word in text.split():
        first, _, last = word.partition("..")
        if first not in known or (last and last not in known):
            fail("unknown 採型区分 %s of %s" % (word, item))
        codes += known[known.index(first):known.index(last or first) + 1]
    return codes


def make_items():
    rows = []
    for item, text in ITEMS.items():
        for line in lines_of(text):
            code, name, forms, _ = parts_of(line, 4)
            rows += [[item, code, name, form] for form in forms.split()]
    return [dict(zip(PRICE_COLUMNS["Item"], [str(number)] + row)) for number, row in enumerate(rows, 1)]


def make_bases():
    rows = []
    for item, text in ITEMS.items():
        aged = item in SHELL or item in ORTHOSIS
        for line in lines_of(text):
            code, name, forms, price = parts_of(line, 4)
            price = int(price)
            if item in ORTHOSIS:
                # One price for a 採型区分 whatever the form, but two ways of taking the shape.
                for style, share in (("1", 1.0), ("2", MEASURE_SHARE)):
                    rows.append([item, code, name, "＊", "", style] + with_old(tiers(price * share, aged), 0.972))
                continue
            for step, form in enumerate(forms.split()):
                cost = price * (1 + FORM_STEP * step)
                if item == "車椅子":
                    for apply, share in CHAIR_APPLY.items():
                        rows.append([item, code, name, form, str(apply), ""] + with_old(tiers(cost * share, aged), 0.975))
                elif item == "電動車椅子":
                    # The lookup of the basic price knows no 適用 here and takes the first row: it has to stand first.
                    for apply in (1, 3):
                        rows.append([item, code, name, form, str(apply), ""]
                                    + with_old(tiers(cost * CHAIR_APPLY[apply], aged), 0.975))
                else:
                    rows.append([item, code, name, form, "", ""] + with_old(tiers(cost, aged), 0.972))
    return numbered("Base", rows)


def make_elements():
    rows = []
    for item, text in ELEMENTS.items():
        aged = item in SHELL or item in ORTHOSIS
        by_code = {}
        for line in lines_of(text):
            element, material, price, codes = parts_of(line, 4)
            for code in codes_of(item, codes):
                by_code.setdefault(code, []).append((element, material, int(price)))
        for code in codes_of(item, "*"):
            for element, material, price in by_code.get(code, []):
                # What is bought by the piece does not grow with the article.
                step = 1.0 if element == "その他の加算要素" else CODE_STEP.get(code, 1.0)
                rows.append([item, code, element, material] + with_old(tiers(price * step, aged), 0.968))
    return numbered("Element", rows)


def make_additions():
    rows = []
    for item, text in ADDITIONS.items():
        for line in lines_of(text):
            element, price, codes, grant = parts_of(line, 4)
            for code in codes_of(item, codes):
                new = ten(int(price) * CODE_STEP.get(code, 1.0))
                rows.append([item, code, element, grant, new, ten(new * 0.97)])
    return numbered("Add", rows)


def make_parts():
    rows = []
    for item, text in PARTS.items():
        serial = 0
        item_number = list(ITEMS).index(item) + 1
        makers = MAKER_FIELDS[item]
        for line in lines_of(text):
            name, form, price, count = parts_of(line, 4)
            chosen = sorted(rng.sample(makers, min(int(count), len(makers))))
            for place, maker in enumerate(chosen):
                serial += 1
                maker_name, letters = MAKERS[maker]
                code = "%s-%02d%03d" % (letters, item_number, serial) if letters else ""
                new = ten(int(price) * (1 + 0.035 * place + rng.choice((-0.02, 0, 0.01, 0.03))))
                old = ten(new * rng.choice((1, 1, 0.98, 0.96)))
                # A part that left the list stays in it, but never the only one of its kind.
                usable = place == 0 or rng.random() > 0.1
                note = rng.choice(PART_NOTES) if rng.random() < 0.25 else ""
                rows.append([item, name, form, maker_name, code, "1" if usable else "0", "○" if usable else "", "",
                             note if usable else "取扱終了", new, old])
    return numbered("Parts", rows)


def numbered(table, rows):
    """Puts ID, and 順番 where the table has it, in front."""
    out = []
    for number, row in enumerate(rows, 1):
        lead = [number, number] if "順番" in PRICE_COLUMNS[table] else [number]
        out.append(dict(zip(PRICE_COLUMNS[table], [str(value) for value in lead + row])))
    return out


def selection_list(price):
    """The 基本要素選択 rows that the three price tables give, as a set."""
    rows = {("車椅子", "＊", "基本価格", "オーダーメイド"), ("車椅子", "＊", "基本価格", "レディメイド"),
            ("車椅子", "＊", "加算", "調整加算（オーダーメイド）"), ("車椅子", "＊", "加算", "調整加算（レディメイド）"),
            ("電動車椅子", "＊", "加算", "調整加算")}
    rows |= {(row["種目"], row["採型区分"], "基本価格", "＊") for row in price["Base"]}
    rows |= {(row["種目"], row["採型区分"], "加算", row["加算要素"]) for row in price["Add"]}
    rows |= {(row["種目"], row["採型区分"], row["製作要素"], row["原材料"]) for row in price["Element"]}
    return rows


# ------------------------------------------------------------------------------------------------------------------
# Price lookup: the rules by which the program finds a price, kept here so that every line can be checked by them
# ------------------------------------------------------------------------------------------------------------------

NOTHING, NOT_FOUND, AMBIGUOUS = 0, 1, 2
TIER_COLUMN = {"小人": "３", "中人": "２"}


def choose(rows, new_column, result_column):
    """The first row's price, and whether rows disagree; rows are in ID order."""
    if not rows:
        return 0, NOT_FOUND
    code, remembered = NOTHING, 0
    if len(rows) > 1:
        for row in rows:
            price = int(row[new_column])
            if remembered == 0:
                remembered = price
            elif price != remembered:
                code = AMBIGUOUS
                break
    return int(rows[0][result_column]), code


def element_price(price, item, code, name, form, style, element, material, tier, old=False):
    kind = "旧価格" if old else "新価格"
    if not (element and item and code):
        return 0, NOTHING
    if element == "基本価格":
        if not (name and form) or (item in ("車いす", "車椅子") and not material):
            return 0, NOTHING
    elif not material:
        return 0, NOTHING
    if item in WHEELCHAIR and element == "加算" and not (name and form):
        return 0, NOTHING

    adjusting = element == "加算" and item in WHEELCHAIR and material.startswith("調整加算")
    if element == "基本価格" or adjusting:
        want = {"種目": item}
        if item in SHELL:
            want.update({"採型区分": code, "形式": form})
        elif item in ORTHOSIS:
            if style not in ("1", "2"):
                return 0, NOTHING
            want.update({"採型区分": code, "採型採寸区分": style})
        else:
            want.update({"名称": name, "形式": form})
            if item in ("車いす", "車椅子"):
                apply = {"オーダーメイド": "1", "レディメイド": "2"} if not adjusting else {
                    "調整加算（オーダーメイド）": "3", "調整加算（レディメイド）": "4"}
                if material not in apply:
                    return 0, NOTHING
                want["適用"] = apply[material]
            elif item in WHEELCHAIR and adjusting:
                want["適用"] = "3"
        rows = [row for row in price["Base"] if all(row[column] == text for column, text in want.items())]
        return choose(rows, "新価格１", kind + TIER_COLUMN.get(tier, "１"))
    if element == "加算":
        rows = [row for row in price["Add"] if (row["種目"], row["加算要素"], row["採型区分"]) == (item, material, code)]
        return choose(rows, "新価格", kind)
    rows = [row for row in price["Element"]
            if (row["種目"], row["製作要素"], row["原材料"], row["採型区分"]) == (item, element, material, code)]
    return choose(rows, "新価格１", kind + TIER_COLUMN.get(tier, "１"))


def part_price(price, item, name, form, code, old=False):
    rows = [row for row in price["Parts"]
            if (row["種目"], row["名称"], row["形式"], row["部品コード"], row["使用設定"]) == (item, name, form, code, "1")]
    return choose(rows, "新価格", "旧価格" if old else "新価格")


def half_even(numerator, denominator):
    whole, rest = divmod(numerator, denominator)
    if 2 * rest > denominator or (2 * rest == denominator and whole % 2):
        whole += 1
    return whole


def amounts(make_total, part_total, discount1, discount2, discount3, tax):
    """(合計, 見積総合計) from the sums of the lines."""
    total = half_even(make_total * discount1 * discount2, 10000) + half_even(part_total * discount3, 100)
    return total, total + total * tax // 100


# ------------------------------------------------------------------------------------------------------------------
# Work dates
# ------------------------------------------------------------------------------------------------------------------

def day(text):
    year, month, number = (int(part) for part in text.split("/"))
    return datetime.date(year, month, number)


def shown(date):
    return date.strftime("%Y/%m/%d") if date else ""


# Holidays of fixed date, and the days around Bon and New Year on which nobody works.
HOLIDAYS = {(2, 11), (2, 23), (4, 29), (5, 3), (5, 4), (5, 5), (5, 6), (8, 11), (8, 13), (8, 14), (8, 15), (11, 3), (11, 23),
            (12, 29), (12, 30), (12, 31), (1, 1), (1, 2), (1, 3)}


def workday(date):
    while date.weekday() > 4 or (date.month, date.day) in HOLIDAYS:
        date += datetime.timedelta(1)
    return date


def later(date, first, last):
    return workday(date + datetime.timedelta(rng.randint(first, last)))


def years_later(date, years):
    last = 28 if (date.month, date.day) == (2, 29) else date.day
    return date.replace(year=date.year + years, day=last)


PLANNED = (("仮合予定日", "33"), ("完成予定日", "34"), ("納品予定日", "35"), ("請求予定日", "36"), ("入金予定日", "37"))


def work_dates(received, way, voucher, settings):
    """All dates of one order as they would fall; the caller takes away those that lie ahead."""
    dates = {"受付日": received}
    dates["見積作成日"] = later(received, 3, 9) if voucher else later(received, 0, 5)
    start = dates["見積作成日"]
    if voucher:
        dates["券受日"] = later(start, 14, 35)
        start = dates["券受日"]
    start = later(start, 5, 18) if voucher else later(start, 0, 7)
    if way != "none":
        dates["採型日"] = start
    if way == "cast":
        dates["仮合実績日"] = later(start, 6, 11)
        dates["完成実績日"] = later(dates["仮合実績日"], 3, 9)
    else:
        dates["完成実績日"] = later(start, 3, 10)
    dates["納品実績日"] = later(dates["完成実績日"], 3, 12)
    known = {name: date for name, date in dates.items() if date <= TODAY}
    if "採型日" in known:
        for column, number in PLANNED:
            if settings[number]:
                known[column] = known["採型日"] + datetime.timedelta(int(settings[number]))
    return known


def status_of(row, claims):
    """The number that the dates give; 99 is set by hand and not looked at here."""
    status = "9"
    for number, column in (("8", "受付日"), ("7", "見積作成日"), ("6", "券受日"), ("5", "採型日"), ("4", "仮合実績日"),
                           ("3", "完成実績日"), ("2", "納品実績日")):
        if row[column]:
            status = number
    if claims and all(claim["入金日"] for claim in claims):
        status = "1"
    return status


# ------------------------------------------------------------------------------------------------------------------
# Orders
# ------------------------------------------------------------------------------------------------------------------

def read_products():
    products = {}
    for line in lines_of(PRODUCTS):
        kind, text = line.split(" ", 1)
        if kind == "#":
            key, equipment, years, way = parts_of(text, 4)
            if equipment not in EQUIPMENT:
                fail("unknown 装具 " + equipment)
            items = []
            products[key] = {"equipment": equipment, "years": years, "way": way, "items": items}
        elif kind == "i":
            item, code, name, form, style, grant = parts_of(text, 6)
            items.append({"種目": item, "採型区分": code, "名称": name, "形式": form, "採型採寸": style, "交付修理": grant,
                          "make": [], "parts": []})
        else:
            items[-1]["make" if kind == "m" else "parts"].append(parts_of(text, 3))
    return products


def estimate_name(items, side, assist):
    """The name that the program proposes with the delivered settings."""
    def usable(text):
        return bool(text) and text[0] not in "*＊"

    words, leg, shoe = [], False, False
    for item in items:
        text = "(%s)" % assist[item["交付修理"]] if usable(assist[item["交付修理"]]) else ""
        kind = item["種目"]
        shell, orthosis = kind in SHELL, kind in ORTHOSIS
        if shell:
            text += "殻構造" if kind[0] == "殻" else "骨格構造"
            text += side
            text += "".join(word for word in (item["名称"], item["形式"]) if usable(word))
        if orthosis:
            leg, shoe = leg or kind == "下肢装具", shoe or kind == "靴型装具"
            if kind not in ("体幹装具", "座位保持装置"):
                text += side
            text += item["名称"] if usable(item["名称"]) else ""
            text += kind if kind in ("靴型装具", "座位保持装置") else ""
            text += assist.get(item["採型採寸"], "")
        if not shell and not orthosis:
            text += "".join(word for word in (item["名称"], item["形式"], kind) if usable(word)) + side
        words.append(text)
    name = words[0]
    for word in words[1:]:
        if leg and shoe:
            name, leg, shoe = name + "付き" + word, False, False
        else:
            name += "および" + word
    return name


def split_total(total, plan, law):
    """(法別No, amount) of each claim line; the last line takes what the others leave."""
    shares = PLANS[plan]
    lines, left = [], total
    for place, (number, share) in enumerate(shares):
        last = place == len(shares) - 1
        amount = left if last else total * share // 100
        lines.append([law if number == "L" else number, amount])
        left -= amount
    if plan == "welfare" and lines[-1][1] > OWN_SHARE_CAP:
        lines[0][1] += lines[-1][1] - OWN_SHARE_CAP
        lines[-1][1] = OWN_SHARE_CAP
    return lines


def claim_dates(claim, delivered, plan, unpaid):
    """Fills the dates and the amount received of one claim line."""
    own = claim["法別No"] in ("12", "99")
    if not delivered:
        return
    asked = delivered if own else later(delivered, 2, 9)
    if asked > TODAY:
        return
    claim["請求日"] = claim["請求書発行日"] = shown(asked)
    if unpaid and (own or plan == "full"):
        return
    if own:
        paid = asked if rng.random() < 0.7 else later(asked, 5, 20)
    else:
        paid = later(asked, 28, 58)
    if paid > TODAY:
        return
    claim["入金日"], claim["領収金額"] = shown(paid), claim["請求金額"]
    if own:
        claim["領収書発行日"] = shown(paid)


# ------------------------------------------------------------------------------------------------------------------
# The sample office
# ------------------------------------------------------------------------------------------------------------------

def stamp(day_text, number):
    return "%s%02d%02d%02d" % (day_text, 9 + number // 3600, number // 60 % 60, number % 60)


def table_row(table, **values):
    # Columns with full-width digits come in a dictionary: Python would narrow them as names.
    row = dict.fromkeys(COLUMNS[table], "")
    for column, value in values.items():
        if column not in row:
            fail("no column %s in %s" % (column, table))
        row[column] = str(value)
    return row


def phone(number):
    return "00-0000-%04d" % number


def make_references(out):
    out["企業情報"] = [table_row("企業情報", **OFFICE)]
    for number, line in enumerate(lines_of(ORDERERS), 1):
        code, name, zip_code, address, head, clerk, flag = parts_of(line, 7)
        out["受注先"].append(table_row("受注先", 受注先No=number, 受注先コード=code, 受注先=name, 郵便番号=zip_code, **{"住所１": address},
                                       電話=phone(1000 + number), FAX=phone(1500 + number), 代表者氏名=head, 担当者氏名=clerk,
                                       順番=stamp("20240401", number), 有効Flg=flag))
    for number, line in enumerate(lines_of(DOCTORS), 1):
        name, orderer, flag = parts_of(line, 3)
        out["主治医"].append(table_row("主治医", 主治医No=number, 主治医コード="%04d" % number, 主治医=name, 受注先No=orderer,
                                       順番=stamp("20240401", 100 + number), 有効Flg=flag))
    for number, line in enumerate(lines_of(PAYERS), 1):
        code, name, zip_code, address, laws = parts_of(line, 5)
        out["請求先"].append(table_row("請求先", 請求先No=number, 請求先コード=code, 請求先=name, 郵便番号=zip_code, **{"住所１": address},
                                       電話=phone(2000 + number), FAX=phone(2500 + number), 担当者氏名="給付担当",
                                       順番=stamp("20240401", 200 + number), 有効Flg=0))
        for law in laws.split():
            pair = len(out["法別請求対応"]) + 1
            out["法別請求対応"].append(table_row("法別請求対応", 法別請求先No=pair, 法別No=law, 請求先No=number,
                                                 順番=stamp("20240401", 300 + pair)))
    for number, line in enumerate(lines_of(MAKERS_IN_CHARGE), 1):
        name, flag = parts_of(line, 2)
        out["製作担当者"].append(table_row("製作担当者", 製作担当者No=number, 製作担当者コード="%04d" % number, 製作担当者=name,
                                           順番=stamp("20240401", 400 + number), 有効Flg=flag))
    for number, name in enumerate(STAFF, 1):
        out["スタッフ"].append(table_row("スタッフ", スタッフNo=number, スタッフコード="%04d" % number, 従業員=name))
    for number, name in enumerate(EQUIPMENT, 1):
        out["装具"].append(table_row("装具", 装具No=number, 装具=name, 順番=stamp("20240401", 500 + number), 有効Flg=0))
    for line in lines_of(POSTAL):
        prefecture, city, towns = parts_of(line, 3)
        for town in towns.split(","):
            code, name = town.strip(" ").split(" ") if " " in town.strip(" ") else (town.strip(" "), "")
            out["郵便番号簿"].append(table_row("郵便番号簿", 郵便番号=code, 都道府県名=prefecture, 市区町村名=city, 町域名=name))
    out["郵便番号簿"].sort(key=lambda row: row["郵便番号"])


def read_people():
    people = []
    for line in lines_of(PEOPLE):
        kind, text = line.split("|", 1)
        if kind == "P":
            names = ("name1", "name2", "kana1", "kana2", "birth", "sex", "tier", "zip", "block", "building", "insured", "relation",
                     "first", "memo")
            person = dict(zip(names, parts_of(text, len(names))))
            person.update(moves=[], charts=[])
            people.append(person)
        elif kind == "M":
            people[-1]["moves"].append(dict(zip(("on", "zip", "block", "building"), parts_of(text, 4))))
        else:
            names = ("disease", "side", "since", "orderer", "doctor", "plan", "law", "payer", "orders")
            people[-1]["charts"].append(dict(zip(names, parts_of(text, len(names)))))
    return sorted(people, key=lambda person: day(person["first"]))


def order_days(chart, first, last_chart):
    """Days of reception for the orders of one chart, in order, the last one usually still in work."""
    orders = chart["orders"].split()
    start = max(first, day(chart["since"]) + datetime.timedelta(4))
    # A voucher alone takes a month, so such work began earlier to be still under way.
    longest = 75 if int(chart["law"]) in VOUCHER_LAWS else 36
    end = TODAY - datetime.timedelta(int(longest * rng.random() ** 1.4) if last_chart else rng.randint(2, 120))
    if orders[-1].endswith("!99"):
        # Nobody gives a claim up before half a year has gone by.
        end -= datetime.timedelta(240)
    while end.weekday() > 4:
        end -= datetime.timedelta(1)
    if len(orders) == 1:
        span = max((end - start).days, 0)
        return [(orders[0], later(start, 0, span))]
    step = (end - start).days // (len(orders) - 1)
    days = []
    for place, order in enumerate(orders):
        jitter = rng.randint(-step // 8, step // 8) if 0 < place < len(orders) - 1 else 0
        days.append((order, workday(start + datetime.timedelta(step * place + jitter))))
    return days


def split_order(order):
    """Product key, fixed status, claim error, first and second percentage."""
    mark = {"!": "", "%": "100", "^": "100"}
    key = ""
    target = None
    for letter in order:
        if letter in mark:
            target, mark[letter] = letter, ""
        elif target:
            mark[target] += letter
        else:
            key += letter
    return key, mark["!"], int(mark["%"]), int(mark["^"])


def make_orders(people):
    """Every order with its person and chart, in the order of entry."""
    orders = []
    for number, person in enumerate(people, 1):
        person["id"] = "%08d" % number
        for place, chart in enumerate(person["charts"], 1):
            chart["no"] = place
            for order, received in order_days(chart, day(person["first"]), place == len(person["charts"])):
                key, mark, discount1, discount2 = split_order(order)
                if mark == "9":
                    received = workday(TODAY - datetime.timedelta(rng.randint(2, 6)))
                orders.append({"person": person, "chart": chart, "key": key, "mark": mark, "received": received,
                               "discounts": (discount1, discount2)})
    orders.sort(key=lambda order: (order["received"], order["person"]["id"], order["chart"]["no"]))
    return orders


def make_customers(out, people, orders):
    towns = {}
    for row in out["郵便番号簿"]:
        towns.setdefault(row["郵便番号"], row)
    per_year = {}
    for person in people:
        mine = [order for order in orders if order["person"] is person]
        year = day(person["first"]).year
        per_year[year] = per_year.get(year, 0) + 1
        person["number"] = "%d%04d" % (year, per_year[year])
        homes = [dict(on=person["first"], zip=person["zip"], block=person["block"], building=person["building"])] + person["moves"]
        for branch, home in enumerate(homes, 1):
            until = day(homes[branch]["on"]) if branch < len(homes) else datetime.date.max
            here = [order for order in mine if day(home["on"]) <= order["received"] < until]
            for order in here:
                order["branch"] = str(branch)
            town = towns.get(home["zip"]) or fail("no town for " + home["zip"])
            home["zip_row"] = town
            entered = min([order["received"] for order in here] + [workday(day(home["on"]))])
            number = int(person["id"])
            memo = person["memo"] if branch == 1 else "転居（%s）" % shown(day(home["on"]))
            out["顧客情報"].append(table_row(
                "顧客情報", 顧客ID=person["id"], 顧客枝番=branch, 顧客番号=person["number"], 名前1=person["name1"], 名前2=person["name2"],
                フリガナ1=person["kana1"], フリガナ2=person["kana2"], 生年月日=person["birth"], 性別=person["sex"], 郵便番号=home["zip"],
                都道府県=town["都道府県名"], 市区郡=town["市区町村名"], 住所1=town["町域名"] + home["block"], 住所2=home["building"],
                電話=phone(3000 + 10 * number + branch), FAX=phone(4000 + number) if number % 9 == 0 else "",
                EMAIL="sample%02d@mihon.example" % number if number % 7 == 0 else "", 価格区分=person["tier"],
                被保険者名=person["insured"], 本人区分=person["relation"], 備考=memo, 登録日=shown(entered), 更新日=shown(entered), 編集者No=1))
            for chart in person["charts"]:
                orderer = out["受注先"][int(chart["orderer"]) - 1]
                doctor = out["主治医"][int(chart["doctor"]) - 1]
                if doctor["受注先No"] != orderer["受注先No"]:
                    fail("doctor %s is not at %s" % (doctor["主治医"], orderer["受注先"]))
                opened = min([order["received"] for order in mine if order["chart"] is chart])
                opened = max(opened, entered)
                out["顧客カルテ"].append(table_row(
                    "顧客カルテ", 顧客ID=person["id"], 顧客枝番=branch, カルテNo=chart["no"],
                    カルテ番号="%s-%d" % (person["number"][2:], chart["no"]), 病名原因=chart["disease"], 左右区分=chart["side"],
                    入通院開始日=chart["since"], 受注先No=orderer["受注先No"], 受注先=orderer["受注先"], 主治医No=doctor["主治医No"],
                    主治医=doctor["主治医"], 登録日=shown(opened), 更新日=shown(opened), 編集者No=1))
            laws = []
            for order in here or mine:
                for number_, _ in PLANS[order["chart"]["plan"]]:
                    law = int(order["chart"]["law"]) if number_ == "L" else number_
                    if law not in laws:
                        laws.append(law)
            for place, law in enumerate(laws, 1):
                out["顧客保険"].append(table_row("顧客保険", 顧客ID=person["id"], 顧客枝番=branch, 項番=place, 法別No=law))
    return per_year


CATEGORY = {"殻構造義手": "義肢", "殻構造義足": "義肢", "骨格構造義手": "義肢", "骨格構造義足": "義肢", "下肢装具": "装具", "靴型装具": "装具",
            "体幹装具": "装具", "上肢装具": "装具", "座位保持装置": "座位保持装置"}


def offers_of(price, item, name, form):
    """The parts of one name and form that can be ordered."""
    offers = [row for row in price["Parts"]
              if (row["種目"], row["名称"], row["形式"], row["使用設定"]) == (item["種目"], name, form, "1")]
    return offers or fail("no part %s %s for %s" % (name, form, item["種目"]))


TIERS = (("小人価格", "小人"), ("中人価格", "中人"), ("大人価格", "大人"))
# The patterns were put in order when the prices in force came; each at its own time of that day.
MASTERS_STORED = PRICE_CHANGE + datetime.timedelta(5)


def make_masters(out, price, products):
    """The master estimates at the prices in force. Returns their codes by product."""
    codes = {}
    for number, line in enumerate(lines_of(MASTERS), 1):
        code, name, key, memo = parts_of(line, 4)
        master = "%08d" % number
        codes[key] = code
        sums = dict.fromkeys((column for column, _ in TIERS), 0)
        for place, item in enumerate(products[key]["items"], 1):
            texts = {column: item[column] for column in ("種目", "採型区分", "名称", "形式", "採型採寸", "交付修理")}
            out["マスタ見積種目"].append(table_row("マスタ見積種目", 製品ID=master, 製品種目No=place, **texts))
            for line_number, (element, material, count) in enumerate(item["make"], 1):
                row = table_row("マスタ見積基本製作要素", 製品ID=master, 製品種目No=place, 要素No=line_number, 製作要素=element,
                                原材料等=material, 数量=count)
                for column, tier in TIERS:
                    unit, _ = element_price(price, item["種目"], item["採型区分"], item["名称"], item["形式"], item["採型採寸"],
                                            element, material, tier)
                    row[column] = str(unit * int(count))
                    sums[column] += unit * int(count)
                out["マスタ見積基本製作要素"].append(row)
            for line_number, (part_name, form, count) in enumerate(item["parts"], 1):
                part = offers_of(price, item, part_name, form)[0]
                cost = part_price(price, item["種目"], part_name, form, part["部品コード"])[0] * int(count)
                out["マスタ見積完成要素"].append(table_row(
                    "マスタ見積完成要素", 製品ID=master, 製品種目No=place, 要素No=line_number, 部品コード=part["部品コード"],
                    部品名称=part_name, 形式等=form, メーカー名=part["メーカ名"], 数量=count, 価格=cost))
                for column in sums:
                    sums[column] += cost
        out["マスタ見積情報"].append(table_row(
            "マスタ見積情報", 製品ID=master, 製品コード=code, 製品名称=name, 価格設定年度=PRICE_CHANGE.year, 備考=memo,
            登録日=shown(MASTERS_STORED), 更新日=shown(MASTERS_STORED), 編集者No=1, **sums))
    return codes


def make_lines(out, price, order, estimate, product):
    """Item and element rows; returns the two sums."""
    tier, old = order["person"]["tier"], order["received"] < PRICE_CHANGE
    sums = [0, 0]
    for number, item in enumerate(product["items"], 1):
        out["顧客見積種目"].append(table_row("顧客見積種目", 見積ID=estimate, 見積種目No=number, 製作要素小計=0, 完成要素小計=0, **{
            column: item[column] for column in ("種目", "採型区分", "名称", "形式", "採型採寸", "交付修理")}))
        for place, (element, material, count) in enumerate(item["make"], 1):
            unit, _ = element_price(price, item["種目"], item["採型区分"], item["名称"], item["形式"], item["採型採寸"], element, material,
                                    tier, old)
            out["顧客見積基本製作要素"].append(table_row("顧客見積基本製作要素", 見積ID=estimate, 見積種目No=number, 要素No=place,
                                                         製作要素=element, 原材料等=material, 数量=count, 価格=unit * int(count)))
            sums[0] += unit * int(count)
        for place, (name, form, count) in enumerate(item["parts"], 1):
            offers = offers_of(price, item, name, form)
            # A customer stays with the maker of the first fitting.
            part = offers[int(order["person"]["id"]) % len(offers)]
            unit, _ = part_price(price, item["種目"], name, form, part["部品コード"], old)
            out["顧客見積完成要素"].append(table_row("顧客見積完成要素", 見積ID=estimate, 見積種目No=number, 要素No=place,
                                                     部品コード=part["部品コード"], 部品名称=name, 形式等=form, メーカー名=part["メーカ名"],
                                                     数量=count, 価格=unit * int(count)))
            sums[1] += unit * int(count)
    return sums


def make_estimates(out, price, orders, products, codes, assist, settings):
    per_year, vouchers = {}, 0
    for number, order in enumerate(orders, 1):
        person, chart, product = order["person"], order["chart"], products[order["key"]]
        estimate, received, plan, law = "%010d" % number, order["received"], chart["plan"], int(chart["law"])
        year = received.year
        per_year[year] = per_year.get(year, 0) + 1
        voucher = law in VOUCHER_LAWS
        dates = {} if order["mark"] == "9" else work_dates(received, product["way"], voucher, settings)
        sums = make_lines(out, price, order, estimate, product)
        tax = 10 if plan == "private" or law == 9 else 6
        discount1, discount2 = order["discounts"]
        total, grand = amounts(sums[0], sums[1], discount1, discount2, 100, tax)

        claims = []
        for place, (claim_law, amount) in enumerate(split_total(grand, plan, law), 1):
            own = claim_law in (12, 99)
            payer = 0 if own else int(chart["payer"]) if place == 1 else SIDE_PAYER[claim_law]
            name = "%s　%s" % (person["name1"], person["name2"])
            if own and person["relation"] == "2":
                name = person["insured"]
            claims.append(table_row("顧客見積請求", 見積ID=estimate, 請求No=place, 法別No=claim_law, 請求先No=payer,
                                    請求先=name if own else out["請求先"][payer - 1]["請求先"], 請求金額=amount))
        if order["mark"] == "d":
            # Entered before a line was added; the editor shows the difference.
            claims[0]["請求金額"] = str(int(claims[0]["請求金額"]) - 2000)
        for claim in claims:
            claim_dates(claim, dates.get("納品実績日"), plan, order["mark"] == "99")
        out["顧客見積請求"] += claims

        maker = 6 if received.year == 2024 and int(person["id"]) % 4 == 0 else int(person["id"]) % 5 + 1
        in_charge = out["製作担当者"][maker - 1]
        fitter = out["製作担当者"][int(person["id"]) % 3]
        row = table_row(
            "顧客見積情報", 見積ID=estimate, 見積番号="%d%06d" % (year, per_year[year]), 顧客ID=person["id"], 顧客枝番=order["branch"],
            カルテNo=chart["no"], 見積名称=estimate_name(product["items"], chart["side"], assist), 部類識別=CATEGORY.get(product["items"][0]["種目"], "その他"),
            価格設定年度=received.year if received.month >= PRICE_CHANGE.month else received.year - 1, 製作担当者No=in_charge["製作担当者No"],
            製作担当者=in_charge["製作担当者"], 担当義肢装具士No=fitter["製作担当者No"], 担当義肢装具士名=fitter["製作担当者"], 合計=total, 合計加算=tax,
            見積総合計=grand, 部品割引=100, 編集者No=1, 登録日=shown(received),
            **{"基本割引１": discount1, "基本割引２": discount2})
        for column, date in dates.items():
            row[column] = shown(date)
        # Since there are patterns, most orders begin with one; the rest are composed by hand.
        if received > MASTERS_STORED and number % 4:
            row["製品コード"] = codes.get(order["key"], "")
        kind = product["items"][0]["種目"]
        if kind in SHELL:
            row["骨格殻別"] = "殻構造" if kind[0] == "殻" else "骨格構造"
        if product["years"]:
            row["耐用年数"] = product["years"]
            row["耐用完了日"] = shown(years_later(received, int(product["years"])))
        if "券受日" in dates:
            vouchers += 1
            row["交付券番号"] = "%s第%04d号" % ("戦" if law == 8 else "児" if law == 13 else "補", 1000 + 7 * vouchers)
        if "見積作成日" in dates:
            row["見積書発行日"] = row["見積作成日"]
            if voucher or law in (10, 14):
                row["内訳書発行日"] = row["見積作成日"]
        if "納品実績日" in dates:
            if law in (1, 2, 3, 4):
                row["意見書発行日"] = row["納品実績日"]
            row["明細書発行日"] = row["納品実績日"] if number % 3 == 0 else ""
            row.update(売掛区分="Ⅱ" if plan == "private" else "Ⅰ", 品名=product["items"][0]["名称"], 装具名=product["equipment"],
                       支払法名="現金" if plan == "private" else "振込", 値引額="0")
        for column, source in (("請求完了日", "請求書発行日"), ("入金完了日", "入金日")):
            if all(claim[source] for claim in claims):
                row[column] = max(claim[source] for claim in claims)
        row["処理区分"] = "99" if order["mark"] == "99" else status_of(row, claims)
        if order["mark"] == "99":
            row["備考"] = "再三の請求に応答なし"
        elif order["mark"] == "d":
            row["備考"] = "請求額は再見積前のもの"
        done = [text for column, text in row.items() if text and column.endswith(("作成日", "受日", "採型日", "実績日", "完了日", "発行日"))
                and column != "耐用完了日"]
        row["更新日"] = max(done + [row["登録日"]])
        out["顧客見積情報"].append(row)
    return per_year


def make_numbers(out, customers_per_year, estimates_per_year, seed_numbers):
    """The last numbers used, so that the next ones follow them."""
    year = str(TODAY.year)
    last = {"顧客ID": out["顧客情報"][-1]["顧客ID"], "見積ID": out["顧客見積情報"][-1]["見積ID"],
            "顧客番号": str(customers_per_year.get(TODAY.year, 0)), "見積番号": str(estimates_per_year.get(TODAY.year, 0)),
            "製品ID": out["マスタ見積情報"][-1]["製品ID"], "主治医コード": out["主治医"][-1]["主治医コード"], "製作担当者コード": out["製作担当者"][-1]["製作担当者コード"]}
    for item, value in last.items():
        seed = seed_numbers[item]
        out["採番"].append(table_row("採番", 項目名=item, 最終値=value.zfill(int(seed["桁"])), 桁=seed["桁"], 年度=year if seed["年度"] else ""))


# ------------------------------------------------------------------------------------------------------------------
# Checks
# ------------------------------------------------------------------------------------------------------------------

def check(condition, text):
    if not condition:
        fail(text)


def check_keys(out):
    for table, count in KEYS.items():
        keys = [tuple(row[column] for column in COLUMNS[table][:count]) for row in out[table]]
        check(len(set(keys)) == len(keys), "double key in " + table)
    numbers = [row["見積番号"] for row in out["顧客見積情報"]]
    check(len(set(numbers)) == len(numbers), "double 見積番号")
    by_number = {(row["顧客番号"], row["顧客ID"]) for row in out["顧客情報"]}
    check(len(by_number) == len({number for number, _ in by_number}), "double 顧客番号")


def check_references(out, seed):
    laws = {row["法別No"] for row in seed["法別"]}
    payers = {row["請求先No"]: row["請求先"] for row in out["請求先"]}
    orderers = {row["受注先No"]: row["受注先"] for row in out["受注先"]}
    doctors = {row["主治医No"]: row for row in out["主治医"]}
    makers = {row["製作担当者No"]: row["製作担当者"] for row in out["製作担当者"]}
    branches = {(row["顧客ID"], row["顧客枝番"]) for row in out["顧客情報"]}
    charts = {(row["顧客ID"], row["顧客枝番"], row["カルテNo"]) for row in out["顧客カルテ"]}
    states = {row["処理区分番号"] for row in seed["処理区分"]}
    pairs = {(row["法別No"], row["請求先No"]) for row in out["法別請求対応"]}
    insured = {(row["顧客ID"], row["顧客枝番"], row["法別No"]) for row in out["顧客保険"]}
    assist = {row["管理No"]: row["分類"] for row in seed["補助設定"]}
    shown_texts = {(row["分類"], row["設定値"]) for row in seed["補助設定"]}
    prefectures = {row["都道府県"] for row in seed["都道府県"]}
    equipment = {row["装具"] for row in out["装具"]} | {""}
    postal = {(row["郵便番号"], row["都道府県名"], row["市区町村名"]) for row in out["郵便番号簿"]}

    for row in out["主治医"]:
        check(row["受注先No"] in orderers, "主治医 without 受注先")
    for row in out["法別請求対応"]:
        check(row["法別No"] in laws and row["請求先No"] in payers, "法別請求対応 points nowhere")
    for row in out["顧客情報"]:
        check((row["郵便番号"], row["都道府県"], row["市区郡"]) in postal, "address not in the postal book: " + row["名前1"])
        check(row["都道府県"] in prefectures and ("6", row["性別"]) in shown_texts and ("5", row["本人区分"]) in shown_texts,
              "customer list value: " + row["名前1"])
        for kana in row["フリガナ1"] + row["フリガナ2"]:
            check("\uff66" <= kana <= "\uff9f", "reading is no half-width katakana: " + row["名前1"])
    for row in out["顧客カルテ"]:
        check((row["顧客ID"], row["顧客枝番"]) in branches and orderers[row["受注先No"]] == row["受注先"]
              and doctors[row["主治医No"]]["主治医"] == row["主治医"] and doctors[row["主治医No"]]["受注先No"] == row["受注先No"], "chart")
        check(row["左右区分"] == "" or ("3", row["左右区分"]) in shown_texts, "side")
    for row in out["顧客保険"]:
        check((row["顧客ID"], row["顧客枝番"]) in branches and row["法別No"] in laws, "insurance")
    estimates = {row["見積ID"]: row for row in out["顧客見積情報"]}
    for row in estimates.values():
        check((row["顧客ID"], row["顧客枝番"], row["カルテNo"]) in charts, "estimate without chart " + row["見積ID"])
        check(row["処理区分"] in states and row["装具名"] in equipment, "estimate list value " + row["見積ID"])
        check(makers[row["製作担当者No"]] == row["製作担当者"] and makers[row["担当義肢装具士No"]] == row["担当義肢装具士名"], "maker in charge")
    for row in out["顧客見積種目"]:
        check(row["見積ID"] in estimates, "item without estimate")
        orthosis = row["種目"] in ORTHOSIS
        check(assist.get(row["採型採寸"]) == "1" if orthosis else row["採型採寸"] == "0", "採型採寸 of " + row["見積ID"])
        check(assist[row["交付修理"]] == "2", "交付修理 of " + row["見積ID"])
    items = {(row["見積ID"], row["見積種目No"]) for row in out["顧客見積種目"]}
    for table in ("顧客見積基本製作要素", "顧客見積完成要素"):
        for row in out[table]:
            check((row["見積ID"], row["見積種目No"]) in items, "line without item in " + table)
    for row in out["顧客見積請求"]:
        head = estimates[row["見積ID"]]
        check(row["法別No"] in laws and (head["顧客ID"], head["顧客枝番"], row["法別No"]) in insured, "claim law " + row["見積ID"])
        if row["法別No"] in ("12", "99"):
            check(row["請求先No"] == "0" and row["請求先"], "own claim " + row["見積ID"])
        else:
            check(payers[row["請求先No"]] == row["請求先"] and (row["法別No"], row["請求先No"]) in pairs, "payer " + row["見積ID"])


def check_prices(out, price):
    """Every stored line by the lookup rules, and the whole list by its own shape. Returns lines checked."""
    chosen = selection_list(price)
    combinations = {tuple(row[column] for column in PRICE_COLUMNS["Item"][1:]) for row in price["Item"]}
    check(len(combinations) == len(price["Item"]), "double 価格種目")
    for row in price["Item"]:
        materials = ("オーダーメイド", "レディメイド") if row["種目"] == "車椅子" else ("＊",)
        styles = ("1", "2") if row["種目"] in ORTHOSIS else ("0",)
        for material in materials:
            for style in styles:
                unit, code = element_price(price, row["種目"], row["採型区分"], row["名称"], row["形式"], style, "基本価格", material, "")
                # The electric basic price shares its search with the 調整加算 row behind it.
                wanted = AMBIGUOUS if row["種目"] == "電動車椅子" else NOTHING
                check(unit > 0 and code == wanted, "basic price of " + "/".join(row.values()))
    for table in ("Base", "Element"):
        for row in price[table]:
            for kind in ("新価格", "旧価格"):
                large, middle, small = (int(row[kind + tier]) for tier in "１２３")
                check(large >= middle >= small > 0, "tiers of %s %s" % (table, row["ID"]))
    for name, rows in price.items():
        check([int(row["ID"]) for row in rows] == list(range(1, len(rows) + 1)) and len(rows) < OWN_ROWS_FROM, "IDs of " + name)
        if "順番" in PRICE_COLUMNS[name]:
            check(all(row["順番"] == row["ID"] for row in rows), "順番 of " + name)
        for row in rows:
            for column, text in row.items():
                check("," not in text and '"' not in text and "\n" not in text, "sign in a price field: " + text)
                check(len(text) <= PRICE_SIZES.get(column, 60), "too long: " + text)
    single = {}
    for row in combinations:
        single.setdefault(row[0], set()).add(row)
    check(any(len(rows) == 1 for rows in single.values()), "no 種目 with a single way through")

    estimates = {row["見積ID"]: row for row in out["顧客見積情報"]}
    tier_of = {(row["顧客ID"], row["顧客枝番"]): row["価格区分"] for row in out["顧客情報"]}
    items = {(row["見積ID"], row["見積種目No"]): row for row in out["顧客見積種目"]}
    for item in items.values():
        check(tuple(item[column] for column in ("種目", "採型区分", "名称", "形式")) in combinations, "item not in the list " + item["見積ID"])
    lines = 0
    for row in out["顧客見積基本製作要素"]:
        item, head = items[row["見積ID"], row["見積種目No"]], estimates[row["見積ID"]]
        texts = [item[column] for column in ("種目", "採型区分", "名称", "形式", "採型採寸")] + [row["製作要素"], row["原材料等"]]
        check((texts[0], texts[1], texts[5], texts[6]) in chosen, "line cannot be chosen: " + "/".join(texts))
        old = int(head["価格設定年度"]) < PRICE_CHANGE.year
        unit, code = element_price(price, *texts, tier_of[head["顧客ID"], head["顧客枝番"]], old)
        wanted = AMBIGUOUS if texts[0] == "電動車椅子" and texts[5] == "基本価格" else NOTHING
        check(unit > 0 and code == wanted and unit * int(row["数量"]) == int(row["価格"]), "price of " + "/".join(texts))
        lines += 1
    for row in out["顧客見積完成要素"]:
        item, head = items[row["見積ID"], row["見積種目No"]], estimates[row["見積ID"]]
        old = int(head["価格設定年度"]) < PRICE_CHANGE.year
        unit, code = part_price(price, item["種目"], row["部品名称"], row["形式等"], row["部品コード"], old)
        check(unit > 0 and code == NOTHING and unit * int(row["数量"]) == int(row["価格"]), "price of part " + row["部品コード"])
        lines += 1
    return lines


def check_masters(out, price):
    """The patterns by the lookup rules and by their own sums. Returns lines checked."""
    chosen = selection_list(price)
    combinations = {tuple(row[column] for column in PRICE_COLUMNS["Item"][1:]) for row in price["Item"]}
    codes = [row["製品コード"] for row in out["マスタ見積情報"]]
    check(len(set(codes)) == len(codes) and all(codes), "double 製品コード")
    check({row["製品コード"] for row in out["顧客見積情報"]} <= set(codes) | {""}, "製品コード of no pattern")
    check({row["種目"] for row in out["マスタ見積種目"]} == set(ITEMS), "a 種目 without a pattern")
    items = {(row["製品ID"], row["製品種目No"]): row for row in out["マスタ見積種目"]}
    for item in items.values():
        check(tuple(item[column] for column in ("種目", "採型区分", "名称", "形式")) in combinations, "pattern not in the list")
    for row in out["マスタ見積基本製作要素"]:
        item = items[row["製品ID"], row["製品種目No"]]
        texts = [item[column] for column in ("種目", "採型区分", "名称", "形式", "採型採寸")] + [row["製作要素"], row["原材料等"]]
        check((texts[0], texts[1], texts[5], texts[6]) in chosen, "line cannot be chosen: " + "/".join(texts))
        for column, tier in TIERS:
            unit, code = element_price(price, *texts, tier)
            wanted = AMBIGUOUS if texts[0] == "電動車椅子" and texts[5] == "基本価格" else NOTHING
            check(unit > 0 and code == wanted and unit * int(row["数量"]) == int(row[column]), "price of " + "/".join(texts))
    for row in out["マスタ見積完成要素"]:
        item = items[row["製品ID"], row["製品種目No"]]
        unit, code = part_price(price, item["種目"], row["部品名称"], row["形式等"], row["部品コード"])
        check(unit > 0 and code == NOTHING and unit * int(row["数量"]) == int(row["価格"]), "price of part " + row["部品コード"])
    for head in out["マスタ見積情報"]:
        make = [row for row in out["マスタ見積基本製作要素"] if row["製品ID"] == head["製品ID"]]
        parts = sum(int(row["価格"]) for row in out["マスタ見積完成要素"] if row["製品ID"] == head["製品ID"])
        for column, _ in TIERS:
            check(int(head[column]) == parts + sum(int(row[column]) for row in make), "sum of " + head["製品コード"])
    return len(out["マスタ見積基本製作要素"]) + len(out["マスタ見積完成要素"])


def check_estimates(out):
    """Amounts, claims, status and the order of the dates. Returns how many claims differ from their total."""
    differing = 0
    for row in out["顧客見積情報"]:
        number = row["見積ID"]
        make = sum(int(line["価格"]) for line in out["顧客見積基本製作要素"] if line["見積ID"] == number)
        part = sum(int(line["価格"]) for line in out["顧客見積完成要素"] if line["見積ID"] == number)
        check(make + part > 0, "no lines in " + number)
        result = amounts(make, part, int(row["基本割引１"]), int(row["基本割引２"]), int(row["部品割引"]), int(row["合計加算"]))
        check(result == (int(row["合計"]), int(row["見積総合計"])), "amount of " + number)
        claims = [claim for claim in out["顧客見積請求"] if claim["見積ID"] == number]
        check(1 <= len(claims) <= 4 and [claim["請求No"] for claim in claims] == [str(n + 1) for n in range(len(claims))], "claims")
        check(all(int(claim["請求金額"]) > 0 for claim in claims), "claim of nothing " + number)
        differing += sum(int(claim["請求金額"]) for claim in claims) != int(row["見積総合計"])
        check(row["処理区分"] == "99" or row["処理区分"] == status_of(row, claims), "status of " + number)
        check(row["処理区分"] != "99" or status_of(row, claims) == "2", "uncollected without delivery " + number)
        check(row["処理区分"] != "99" or day(row["納品実績日"]) < TODAY - datetime.timedelta(180), "given up too early " + number)
        done = [row[column] for column in ("受付日", "見積作成日", "券受日", "採型日", "仮合実績日", "完成実績日", "納品実績日") if row[column]]
        check(done == sorted(done), "dates of " + number)
        for claim in claims:
            dates = [row["納品実績日"] or "9999", claim["請求日"], claim["入金日"]]
            dates = [text for text in dates if text]
            check(dates == sorted(dates), "claim dates of " + number)
            check((claim["入金日"] == "") == (claim["領収金額"] == ""), "payment of " + number)
            done += [text for text in (claim["請求日"], claim["入金日"]) if text]
        check(all(shown(FIRST_DAY) <= text <= shown(TODAY) for text in done), "date out of the time told " + number)
    return differing


def check_sizes(out):
    for table, sizes in SIZES.items():
        for row in out[table]:
            for column, size in sizes.items():
                check(len(row[column]) <= size, "too long in %s: %s" % (table, row[column]))


def check_numbers(out):
    last = {row["項目名"]: row for row in out["採番"]}
    year = str(TODAY.year)
    check(last["顧客ID"]["最終値"] == max(row["顧客ID"] for row in out["顧客情報"]), "採番 顧客ID")
    check(last["見積ID"]["最終値"] == max(row["見積ID"] for row in out["顧客見積情報"]), "採番 見積ID")
    for item, table in (("顧客番号", "顧客情報"), ("見積番号", "顧客見積情報")):
        used = [row[item][4:] for row in out[table] if row[item].startswith(year)]
        check(last[item]["年度"] == year and last[item]["最終値"] == max(used), "採番 " + item)


# ------------------------------------------------------------------------------------------------------------------
# Reading and writing
# ------------------------------------------------------------------------------------------------------------------

def read_seed():
    seed = {}
    for path in sorted(SEED_DIR.glob("*.csv")):
        with path.open(encoding="utf-8", newline="") as file:
            seed[path.stem] = list(csv.DictReader(file))
    return seed


def write_table(table, rows):
    text = io.StringIO()
    writer = csv.writer(text, lineterminator="\n")
    writer.writerow(COLUMNS[table])
    writer.writerows([row[column] for column in COLUMNS[table]] for row in rows)
    (HERE / (table + ".csv")).write_bytes(text.getvalue().encode("utf-8"))


def price_bytes(name, rows):
    text = "".join(",".join(row[column] for column in PRICE_COLUMNS[name]) + "\r\n" for row in rows)
    content = text.encode("cp932", "replace")
    # Some signs share a code; a reader must get back what was written.
    check(content.decode("cp932") == text, "not in code page 932: " + name)
    return content


def main():
    seed = read_seed()
    settings = {row["No"]: row["設定値"] for row in seed["システム設定"]}
    assist = {row["管理No"]: row["表示名"] for row in seed["補助設定"]}
    price = {"Item": make_items(), "Base": make_bases(), "Add": make_additions(), "Element": make_elements(), "Parts": make_parts()}

    out = {table: [] for table in COLUMNS}
    make_references(out)
    people = read_people()
    orders = make_orders(people)
    check(len(orders) == ESTIMATE_COUNT, "%d estimates" % len(orders))
    customers_per_year = make_customers(out, people, orders)
    products = read_products()
    codes = make_masters(out, price, products)
    estimates_per_year = make_estimates(out, price, orders, products, codes, assist, settings)
    make_numbers(out, customers_per_year, estimates_per_year, {row["項目名"]: row for row in seed["採番"]})

    check_keys(out)
    check_references(out, seed)
    lines = check_prices(out, price) + check_masters(out, price)
    differing = check_estimates(out)
    check_sizes(out)
    check_numbers(out)
    files = {name: price_bytes(name, rows) for name, rows in price.items()}
    states = {}
    for row in out["顧客見積情報"]:
        states[row["処理区分"]] = states.get(row["処理区分"], 0) + 1
    check(set(states) == {row["処理区分番号"] for row in seed["処理区分"]}, "a status without an estimate: %s" % states)

    for table, rows in out.items():
        write_table(table, rows)
    (HERE / "kakaku").mkdir(exist_ok=True)
    for name, content in files.items():
        (HERE / "kakaku" / (name + ".csv")).write_bytes(content)

    for table, rows in out.items():
        print("%-12s %4d" % (table, len(rows)))
    for name, rows in price.items():
        print("kakaku/%-7s %4d" % (name, len(rows)))
    print("lines priced by the lookup rules: %d" % lines)
    print("claims that differ from the total: %d" % differing)
    print("estimates by status: " + " ".join("%s:%d" % pair for pair in sorted(states.items(), key=lambda pair: int(pair[0]))))


if __name__ == "__main__":
    main()
