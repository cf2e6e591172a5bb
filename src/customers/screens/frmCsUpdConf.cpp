#include "customers/screens/frmCsUpdConf.h"

#include "base/Text.h"
#include "db/clsAssistManager.h"
#include "ui/Grid.h"
#include "ui_frmCsUpdConf.h"

#include <QHeaderView>
#include <QStyledItemDelegate>

namespace {

enum Column { Title, Stored, Typed, Mark };

const QString differs = u"●"_qs;
const QColor differentRow(0xFF, 0xE8, 0xC4);

// Colours the rows that carry the mark.
class DifferenceDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (index.siblingAtColumn(Mark).data().toString().isEmpty()) return;
        option->backgroundBrush = differentRow;
        option->font.setBold(true);
    }
};

struct Line {
    QString title;
    QString clsCustomer::*member;
};

const QList<Line>& lines() {
    static const QList<Line> all{{u"顧客番号"_qs, &clsCustomer::CustNo},
                                 {u"名前（姓）"_qs, &clsCustomer::CustNm1},
                                 {u"名前（名）"_qs, &clsCustomer::CustNm2},
                                 {u"ﾌﾘｶﾞﾅ（姓）"_qs, &clsCustomer::CustKn1},
                                 {u"ﾌﾘｶﾞﾅ（名）"_qs, &clsCustomer::CustKn2},
                                 {u"生年月日"_qs, &clsCustomer::Birth},
                                 {u"性別"_qs, &clsCustomer::Sex},
                                 {u"郵便番号"_qs, &clsCustomer::Zip},
                                 {u"都道府県"_qs, &clsCustomer::Pref},
                                 {u"市区郡"_qs, &clsCustomer::City},
                                 {u"住所1"_qs, &clsCustomer::Addr1},
                                 {u"住所2"_qs, &clsCustomer::Addr2},
                                 {u"電話"_qs, &clsCustomer::Tel},
                                 {u"FAX"_qs, &clsCustomer::Fax},
                                 {u"被保険者名"_qs, &clsCustomer::Insured},
                                 {u"本人区分"_qs, &clsCustomer::FamilyType},
                                 {u"備考"_qs, &clsCustomer::Memo}};
    return all;
}

QList<GridColumn> columns() {
    GridColumn title = GridColumn::of(u"項目"_qs, 13);
    title.background = Style::heading;
    return {title, GridColumn::of(u"マスタ"_qs, 40), GridColumn::of(u"入力"_qs, 40),
            GridColumn::of(u"相違"_qs, 4).aligned(Qt::AlignCenter)};
}

// 本人区分 is stored as its value and told by its name.
QString shown(const Line& line, const clsCustomer& customer) {
    const QString value = customer.*line.member;
    if (line.member != &clsCustomer::FamilyType) return value;
    for (const clsAssist& type : gAssistManager.group(AssistGroup::FamilyType))
        if (type.AsstData == value) return type.AsstView;
    return value;
}

// A long address or memo is shown whole, as the difference may stand at its end.
void showWholeTexts(Grid* grid) {
    grid->setWordWrap(true);
    grid->verticalHeader()->setMinimumSectionSize(grid->verticalHeader()->defaultSectionSize());
    grid->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

} // namespace

frmCsUpdConf::frmCsUpdConf(QWidget* parent) : Screen(parent), ui(std::make_unique<Ui::frmCsUpdConf>()) {
    ui->setupUi(this);
    ui->flxCust->setItemDelegate(new DifferenceDelegate(this));
    onClick(ui->cmdUpdMode_3, [this] { select(CustomerUpdate::NewCustomer); });
    onClick(ui->cmdUpdMode_2, [this] { select(CustomerUpdate::NewBranch); });
    onClick(ui->cmdUpdMode_1, [this] { select(CustomerUpdate::Overwrite); });
}

frmCsUpdConf::~frmCsUpdConf() = default;

void frmCsUpdConf::load() {
    Grid* grid = ui->flxCust;
    grid->setColumns(columns());
    grid->horizontalHeader()->setStretchLastSection(false);
    for (const int value : {Stored, Typed}) grid->horizontalHeader()->setSectionResizeMode(value, QHeaderView::Stretch);
    for (const Line& line : lines()) {
        const bool same = Text::rightTrimmed(MstInf.*line.member) == Text::rightTrimmed(IptInf.*line.member);
        grid->addRow({line.title, shown(line, MstInf), shown(line, IptInf), same ? QString() : differs});
    }
    showWholeTexts(grid);
    grid->setSelectionMode(QAbstractItemView::NoSelection); // it would hide the colour
    grid->setFocus();
}

void frmCsUpdConf::select(CustomerUpdate choice) {
    Selected = static_cast<qint16>(choice);
    close();
}

CustomerUpdate frmCsUpdConf::ask(QWidget* parent, const clsCustomer& stored, const clsCustomer& typed) {
    auto choice = CustomerUpdate::Closed;
    openScreen<frmCsUpdConf>(
        parent,
        [&](frmCsUpdConf& screen) {
            screen.MstInf = stored;
            screen.IptInf = typed;
        },
        [&](frmCsUpdConf& screen) { choice = static_cast<CustomerUpdate>(screen.Selected); });
    return choice;
}
