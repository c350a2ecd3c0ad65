#include "dimensionstyledialog.h"
#include "ui_dimensionstyledialog.h"

#include <CKtTreeCtrl>
#include <KtApDocManager>
#include <KtUiArrowComboBox>
#include <KtUiPredefBlockComboBox>

namespace {

// The styles a new drawing of the host brings, with the arrowheads each one
// uses (row numbers of the standard arrowheads: first, second, leader).
struct StyleDefaults
{
    const wchar_t* name;
    const wchar_t* parent;
    int first, second, leader;
};

constexpr StyleDefaults kStyles[] = {
    {L"Standard", nullptr, 0, 0, 0},
    {L"ISO-25", nullptr, 0, 0, 0},
    {L"Linear", L"ISO-25", 5, 5, 0},
    {L"Radial", L"ISO-25", 0, 0, 3},
    {L"Architectural", nullptr, 5, 5, 3},
};

// The line weights of a new drawing, in millimetres.
const QVector<double> kLineWeights = {0.00, 0.05, 0.09, 0.13, 0.15, 0.18, 0.20, 0.25, 0.30, 0.35, 0.40, 0.50,
    0.53, 0.60, 0.70, 0.80, 0.90, 1.00, 1.06, 1.20, 1.40, 1.58, 2.00, 2.11};

QString blockText(const QString& name)
{
    if (name.isEmpty())
        return DimensionStyleDialog::tr("(drawn by the host)");
    const bool inDrawing = KtUiArrowComboBox::hasBlock(name.toStdWString().c_str(), curDatabase());
    return inDrawing ? name : DimensionStyleDialog::tr("%1 (not in the drawing)").arg(name);
}

} // namespace

DimensionStyleDialog::DimensionStyleDialog(QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::DimensionStyleDialog>())
{
    m_ui->setupUi(this);
    fillStyles();
    QVector<double> weights = kLineWeights;
    m_ui->lineWeight->setLineWeightList(weights);
    m_ui->lineWeight->setCurrentIndex(
        m_ui->lineWeight->findText(QStringLiteral("0.25"), Qt::MatchStartsWith));

    connect(m_ui->firstArrow, &KtUiArrowComboBox::arrowItemChanged, this,
        &DimensionStyleDialog::firstArrowChanged);
    for (KtUiArrowComboBox* combo : {m_ui->secondArrow, m_ui->leaderArrow})
        connect(combo, &KtUiArrowComboBox::arrowItemChanged, this, &DimensionStyleDialog::updateSummary);
    connect(m_ui->callout, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &DimensionStyleDialog::updateSummary);
    connect(m_ui->secondFollowsFirst, &QCheckBox::toggled, this, [this](bool on) {
        m_ui->secondArrow->setEnabled(!on);
        if (on)
            firstArrowChanged();
    });
    connect(m_ui->styles, &QTreeWidget::currentItemChanged, this, &DimensionStyleDialog::styleChosen);
    m_ui->secondArrow->setEnabled(!m_ui->secondFollowsFirst->isChecked());
    updateSummary();
}

DimensionStyleDialog::~DimensionStyleDialog() = default;

KtUiArrowComboBox* DimensionStyleDialog::firstArrow() const
{
    return m_ui->firstArrow;
}

KtUiArrowComboBox* DimensionStyleDialog::secondArrow() const
{
    return m_ui->secondArrow;
}

KtUiArrowComboBox* DimensionStyleDialog::leaderArrow() const
{
    return m_ui->leaderArrow;
}

KtUiPredefBlockComboBox* DimensionStyleDialog::callout() const
{
    return m_ui->callout;
}

CKtTreeCtrl* DimensionStyleDialog::styles() const
{
    return m_ui->styles;
}

QString DimensionStyleDialog::summary() const
{
    return m_ui->summary->text();
}

void DimensionStyleDialog::fillStyles()
{
    CKtTreeCtrl* tree = m_ui->styles;
    QTreeWidgetItem* parentItem = nullptr;
    for (const StyleDefaults& style : kStyles) {
        QTreeWidgetItem* item = tree->InsertItem(style.name, style.parent ? parentItem : nullptr);
        tree->SetItemData(item, static_cast<unsigned long long>(&style - kStyles));
        if (!style.parent)
            parentItem = item;
    }
    tree->ExpandAll();
}

void DimensionStyleDialog::firstArrowChanged()
{
    if (m_ui->secondFollowsFirst->isChecked()) {
        // Through the combo's own slot, so that the second block is made as well.
        m_ui->secondArrow->setCurrentIndex(m_ui->firstArrow->currentIndex());
    }
    updateSummary();
}

void DimensionStyleDialog::styleChosen(QTreeWidgetItem* item)
{
    if (!item)
        return;
    const StyleDefaults& style = kStyles[m_ui->styles->GetItemData(item)];
    m_ui->firstArrow->setCurrentIndex(style.first);
    if (!m_ui->secondFollowsFirst->isChecked())
        m_ui->secondArrow->setCurrentIndex(style.second);
    m_ui->leaderArrow->setCurrentIndex(style.leader);
}

void DimensionStyleDialog::updateSummary()
{
    m_ui->summary->setText(tr("Blocks: first %1, second %2, leader %3, callout %4")
                               .arg(blockText(m_ui->firstArrow->getCurArrowBlockName()),
                                   blockText(m_ui->secondArrow->getCurArrowBlockName()),
                                   blockText(m_ui->leaderArrow->getCurArrowBlockName()),
                                   blockText(m_ui->callout->getCurPredefBlockName())));
}
