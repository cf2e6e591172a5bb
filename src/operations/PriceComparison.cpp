#include "operations/PriceComparison.h"

#include "base/AppError.h"
#include "base/Numbers.h"
#include "base/basCommon.h"
#include "composition/Pricing.h"
#include "db/Schema.h"
#include "estimates/EstimateDates.h"
#include "estimates/EstimateDraft.h"
#include "estimates/EstimateManagers.h"
#include "master/MasterManagers.h"
#include "master/MasterRepricing.h"
#include "operations/DatabaseCreation.h"
#include "operations/PriceRevision.h"
#include "price/PriceFiles.h"
#include "price/PriceImport.h"
#include "price/clsKDBManager.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTemporaryDir>

namespace {

constexpr int tellEvery = 50; // milliseconds

// The operator gave up; it ends the work from any depth.
struct GivenUp {};

// Tells how far the work is, no oftener than an eye can follow.
class Progress {
public:
    explicit Progress(const TellComparison& tell) : m_tell(tell) {}

    void at(const QString& part, qint64 done, qint64 all) {
        if (m_since.isValid() && m_since.elapsed() < tellEvery) return;
        if (!m_tell(part, done, all)) throw GivenUp();
        m_since.start();
    }

private:
    const TellComparison& m_tell;
    QElapsedTimer m_since;
};

// --- the price lists ---

// One of the two lists as a database of price tables.
class OpenedPrices {
public:
    OpenedPrices(Connection& main, const PriceList& list) : m_main(main), m_list(list) { m_file.Prepare(main); }

    void open(Progress& progress, QStringList& faults) {
        if (m_list.kind == PriceList::KeptYear) openYear();
        if (m_list.kind == PriceList::Files) readFiles(progress, faults);
    }

    bool isInForce() const { return m_list.kind == PriceList::InForce; }
    Connection& connection() { return isInForce() ? m_main : m_file.Connection(); }

private:
    // Only a look into its tables shows whether a file is a price database.
    void openYear() {
        m_file.KDBOpen(PriceRevision::folder(), PriceRevision::fileName(m_list.from));
        m_file.named([this] {
            for (const QString& table : Schema::priceTables())
                connection().scalar(u"SELECT COUNT(*) FROM [%1]"_qs.arg(table));
        });
    }

    void readFiles(Progress& progress, QStringList& faults) {
        if (!m_folder.isValid())
            throw AppError(u"作業用のフォルダを作成できません。\n"_qs + m_folder.errorString(), u"PriceComparison"_qs);
        const QString name = PriceRevision::fileName(u"new"_qs);
        DatabaseCreation::createPrices(m_folder.filePath(name));
        m_file.KDBOpen(m_folder.path(), name);
        const BoundPrices bound(connection(), m_main);
        const QStringList files = PriceRevision::filesIn(m_list.from);
        for (qsizetype i = 0; i < files.size(); ++i)
            readFile(Schema::priceTables().at(i), files.at(i), progress, faults);
    }

    void readFile(const QString& table, const QString& path, Progress& progress, QStringList& faults) {
        PriceFileReading reading(priceTable(table), connection(), path);
        try {
            const qint64 all = reading.countLines();
            reading.onRow = [&](qint64 done) {
                progress.at(u"%1のファイルを読んでいます"_qs.arg(priceTableWord(table)), done, all);
            };
            reading.run();
        } catch (const AppError& error) {
            faults << u"%1 %2行目：%3"_qs.arg(QFileInfo(path).fileName()).arg(reading.line()).arg(error.description());
        }
        connection().copyRows(m_main, table, table, clsKDBManager::ownRows());
    }

    Connection& m_main;
    const PriceList& m_list;
    QTemporaryDir m_folder;
    clsKDBManager m_file;
};

// --- the amounts ---

struct Amounts {
    QStringList tiers; // 大人, 中人 and 小人, or one
    QString note;
};

QString noteOf(const PriceGaps& gaps) {
    QStringList words;
    if (gaps.missing() > 0) words << u"価格のない行 %1"_qs.arg(gaps.missing());
    if (gaps.ambiguous() > 0) words << u"価格が複数ある行 %1"_qs.arg(gaps.ambiguous());
    return words.join(u'、');
}

QString oneLine(QString text) { return text.replace(u'\n', u' '); }

// Stored work of one kind under the two lists.
class Work {
public:
    virtual ~Work() = default;
    virtual qsizetype size() const = 0;
    virtual QString part() const = 0;
    // Begins with the first one anew.
    virtual void begin() = 0;
    virtual Amounts stored(qsizetype place) = 0;
    // By the price tables as they are bound.
    virtual Amounts priced(qsizetype place) = 0;
    virtual AmountMove about(qsizetype place) = 0;
};

class Masters : public Work {
public:
    Masters() { gMstEstimateManager.GetList(m_masters, {}, u"[製品コード]"_qs); }

    qsizetype size() const override { return m_masters.size(); }
    QString part() const override { return u"マスタ見積を計算しています"_qs; }
    void begin() override { m_repricing = MasterRepricing(PriceGaps::Counted); }
    Amounts stored(qsizetype place) override { return {amountsOf(m_masters.at(place)), {}}; }
    Amounts priced(qsizetype place) override {
        clsMstEstimate master = m_masters.at(place);
        MasterRows rows = readMasterRows(master.ProductId);
        const PriceGaps gaps = m_repricing.price(master, rows);
        return {amountsOf(master), noteOf(gaps)};
    }
    AmountMove about(qsizetype place) override {
        const clsMstEstimate& master = m_masters.at(place);
        return {master.ProductCd, master.ProductNm, master.PriceSedYear, {}};
    }

private:
    static QStringList amountsOf(const clsMstEstimate& master) {
        return {master.PriceBig, master.PriceMiddle, master.PriceSmall};
    }

    QList<clsMstEstimate> m_masters;
    MasterRepricing m_repricing{PriceGaps::Counted};
};

class Orders : public Work {
public:
    Orders() {
        gCsEstimateManager.GetList(m_orders,
                                   u"[処理区分] BETWEEN %1 AND %2"_qs.arg(WorkStatus::Completion, WorkStatus::Nothing),
                                   gCsEstimateManager.sorted({&clsCsEstimate::EstNo, &clsCsEstimate::EstId}));
    }

    qsizetype size() const override { return m_orders.size(); }
    QString part() const override { return u"受注を計算しています"_qs; }
    void begin() override {}
    Amounts stored(qsizetype place) override { return {{m_orders.at(place).EstSum}, {}}; }
    Amounts priced(qsizetype place) override {
        EstimateDraft draft;
        draft.estimate = m_orders.at(place);
        const QString id = draft.estimate.EstId;
        draft.composition =
            composed({gCsItemManager.rowsOf({id}), gCsMakeElmtManager.rowsOf({id}), gCsCmpltElmtManager.rowsOf({id})});
        draft.composition.dropUnusableLines();
        Pricing pricing({tierOf(customerOf(draft.estimate))}, PriceGaps::Counted);
        pricing.reprice(draft.composition);
        return {{QString::number(draft.amounts().total)}, noteOf(pricing.gaps())};
    }
    AmountMove about(qsizetype place) override {
        const clsCsEstimate& order = m_orders.at(place);
        const clsCustomer customer = customerOf(order);
        const QString name = JoinWithSpace(customer.CustNm1, customer.CustNm2);
        return {order.EstNo, JoinWithSpace(name, order.EstNm), order.PriceSedYear, tierOf(customer)};
    }

private:
    // The look-up takes any other text for 大人.
    static QString tierOf(const clsCustomer& customer) {
        const QString& tier = customer.PriceType;
        return tier == u"小人" || tier == u"中人" ? tier : u"大人"_qs;
    }
    static clsCustomer customerOf(const clsCsEstimate& order) {
        clsCustomer customer;
        if (!order.CustId.isEmpty()) gCustomerManager.GetData(order.CustId, order.CustSubId, customer);
        return customer;
    }

    QList<clsCsEstimate> m_orders;
};

// --- the comparison ---

class Comparison {
public:
    Comparison(Connection& main, const PriceList& before, const PriceList& after, const TellComparison& tell)
        : m_main(main), m_before(main, before), m_after(main, after), m_progress(tell) {}

    PriceComparison run() {
        PriceComparison found;
        m_before.open(m_progress, found.faults);
        m_after.open(m_progress, found.faults);
        found.prices = comparePrices();
        Masters masters;
        found.masters = moves(masters);
        Orders orders;
        found.orders = moves(orders);
        return found;
    }

private:
    QList<PriceChange> comparePrices() {
        qint64 all = 0;
        QString counted;
        return priceChanges(m_before.connection(), m_after.connection(), [&](const QString& table, qint64 rows) {
            if (counted != table) all = countOf(m_before, table) + countOf(m_after, table);
            counted = table;
            m_progress.at(u"%1を比べています"_qs.arg(priceTableWord(table)), rows, all);
            return true;
        });
    }

    static qint64 countOf(OpenedPrices& prices, const QString& table) {
        return prices.connection().scalar(u"SELECT COUNT(*) FROM [%1]"_qs.arg(table)).toLongLong();
    }

    // What the work costs under one of the lists. `half` is the first or second half of what is told.
    QList<Amounts> amounts(Work& work, OpenedPrices& prices, bool asStored, int half) {
        const BoundPrices bound(prices.connection(), m_main);
        work.begin();
        QList<Amounts> amounts;
        for (qsizetype i = 0; i < work.size(); ++i) {
            amounts << amount(work, i, asStored);
            m_progress.at(work.part(), half * work.size() + i + 1, 2 * work.size());
        }
        return amounts;
    }

    static Amounts amount(Work& work, qsizetype place, bool asStored) {
        try {
            return asStored ? work.stored(place) : work.priced(place);
        } catch (const AppError& error) {
            return {{}, oneLine(error.description())};
        }
    }

    QList<AmountMove> moves(Work& work) {
        const QList<Amounts> before = amounts(work, m_before, m_before.isInForce(), 0);
        const QList<Amounts> after = amounts(work, m_after, false, 1);
        QList<AmountMove> moves;
        for (qsizetype i = 0; i < work.size(); ++i) add(moves, work, i, before.at(i), after.at(i));
        return moves;
    }

    // What could not be computed is told, too: it may move.
    static void add(QList<AmountMove>& moves, Work& work, qsizetype place, const Amounts& before,
                    const Amounts& after) {
        AmountMove move = work.about(place);
        move.note = after.note.isEmpty() ? before.note : after.note;
        if (before.tiers.isEmpty() || after.tiers.isEmpty()) {
            moves << move;
            return;
        }
        for (const TierMove& tier : movesOf(before.tiers, after.tiers)) {
            if (!tier.tiers.isEmpty()) move.tiers = tier.tiers;
            move.move = tier.move;
            moves << move;
            move.isFurther = true;
        }
    }

    Connection& m_main;
    OpenedPrices m_before, m_after;
    Progress m_progress;
};

} // namespace

std::optional<PriceComparison> comparePrices(Connection& main, const PriceList& before, const PriceList& after,
                                             const TellComparison& tell) {
    try {
        return Comparison(main, before, after, tell).run();
    } catch (const GivenUp&) {
        return std::nullopt;
    }
}
