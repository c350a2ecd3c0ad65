#include "blockspage.h"

#include "blockpreview.h"

#include <KtApDocManager>
#include <KtDbBlockTable>
#include <KtDbBlockTableRecord>
#include <KtDbDatabase>
#include <KtDbPolyline>
#include <KtUiBlockPickers>
#include <QButtonGroup>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

/// A drawing's own block, for the "user arrow..." chooser: a small flag.
void addFlagBlock(KtDbDatabase* db)
{
    auto* flag = new KtDbBlockTableRecord;
    flag->setName(L"Flag");
    auto* outline = new KtDbPolyline;
    const KtGePoint2d points[] = {{0, 0}, {-1, 0}, {-1, 0.5}, {-0.4, 0.25}, {-1, 0}};
    for (unsigned int i = 0; i < 5; ++i)
        outline->addVertexAt(i, points[i]);
    KtDbObjectId id;
    flag->appendKtDbEntity(id, outline);
    KtDbBlockTable* table = nullptr;
    if (db->getSymbolTable(table, KtDb::kForWrite) != Kt::eOk) {
        delete flag;
        return;
    }
    if (table->add(id, flag) == Kt::eOk)
        flag->close();
    else
        delete flag;
    table->close();
}

int blockCount()
{
    KtDbBlockTable* table = nullptr;
    if (curDatabase()->getSymbolTable(table, KtDb::kForRead) != Kt::eOk)
        return 0;
    const int count = table->recordCount();
    table->close();
    return count;
}

} // namespace

BlocksPage::BlocksPage(QWidget* parent)
    : QWidget(parent)
{
    auto* arrows = new QGroupBox(tr("Arrowheads"), this);
    auto* arrowForm = new QFormLayout(arrows);
    m_first = new KtUiArrowComboBox(arrows);
    m_second = new KtUiArrowComboBox(arrows);
    m_leader = new KtUiArrowComboBox(arrows);
    arrowForm->addRow(tr("First:"), m_first);
    arrowForm->addRow(tr("Second:"), m_second);
    arrowForm->addRow(tr("Leader:"), m_leader);

    auto* callouts = new QGroupBox(tr("Callout"), this);
    auto* calloutForm = new QFormLayout(callouts);
    m_callout = new KtUiPredefBlockComboBox(callouts);
    calloutForm->addRow(tr("Block:"), m_callout);

    auto* units = new QGroupBox(tr("Drawing"), this);
    auto* unitsLayout = new QHBoxLayout(units);
    auto* imperial = new QRadioButton(tr("Imperial"), units);
    m_metric = new QRadioButton(tr("Metric"), units);
    auto* group = new QButtonGroup(this);
    group->addButton(imperial);
    group->addButton(m_metric);
    m_metric->setChecked(true);
    auto* save = new QPushButton(tr("Save drawing as DXF..."), units);
    unitsLayout->addWidget(imperial);
    unitsLayout->addWidget(m_metric);
    unitsLayout->addStretch();
    unitsLayout->addWidget(save);

    m_previewTitle = new QLabel(this);
    m_preview = new BlockPreview(this);
    m_status = new QLabel(this);
    m_status->setWordWrap(true);

    auto* left = new QVBoxLayout;
    left->addWidget(arrows);
    left->addWidget(callouts);
    left->addWidget(units);
    left->addStretch();
    auto* right = new QVBoxLayout;
    right->addWidget(m_previewTitle);
    right->addWidget(m_preview, 1);
    auto* columns = new QHBoxLayout;
    columns->addLayout(left, 1);
    columns->addLayout(right, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns, 1);
    layout->addWidget(m_status);

    for (KtUiArrowComboBox* combo : {m_first, m_second, m_leader})
        connect(combo, &KtUiArrowComboBox::arrowItemChanged, this, [this, combo] { showArrow(combo); });
    // Connected after the combo's own slot, which makes the block first.
    connect(m_callout, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &BlocksPage::showCallout);
    connect(m_metric, &QRadioButton::toggled, this, &BlocksPage::newDrawing);
    connect(save, &QPushButton::clicked, this, &BlocksPage::saveDxf);

    newDrawing(true);
    // A dimension style as a dialog would load it: closed blank at both ends, a dot on the leader.
    m_first->setCurrentIndex(1);
    m_second->setCurrentIndex(1);
    m_leader->setCurrentIndex(3);
    showCallout();
}

void BlocksPage::newDrawing(bool metric)
{
    KtApDocManager* documents = ktDocManagerPtr();
    KtApDocument* old = documents->curDocument();
    documents->newDocument();
    documents->closeDocument(old);
    KtDbDatabase* db = curDatabase();
    db->setMeasurement(metric ? 1 : 0);
    db->setInsunits(metric ? 4 : 1); // millimetres or inches
    addFlagBlock(db);
    // The combos' blocks are made in the new drawing as they are asked for.
    for (KtUiArrowComboBox* combo : {m_first, m_second, m_leader})
        combo->GetCurSelArrowHead();
    m_callout->GetCurSelPredefHead();
    showCallout();
}

void BlocksPage::showArrow(KtUiArrowComboBox* combo)
{
    const KtDbObjectId id = combo->GetCurSelArrowHead();
    const QString name = combo->getCurArrowBlockName();
    m_previewTitle->setText(
        tr("Arrowhead \"%1\", block %2").arg(combo->currentText(), name.isEmpty() ? tr("(none)") : name));
    m_preview->setBlock(id, tr("The closed filled arrowhead has no block: the host draws it."));
    updateStatus();
}

void BlocksPage::showCallout()
{
    const KtDbObjectId id = m_callout->GetCurSelPredefHead();
    m_previewTitle->setText(
        tr("Callout \"%1\", block %2").arg(m_callout->currentText(), m_callout->getCurPredefBlockName()));
    m_preview->setBlock(id, tr("No block"));
    updateStatus();
}

void BlocksPage::saveDxf()
{
    const QString file = QFileDialog::getSaveFileName(
        this, tr("Save drawing as DXF"), QStringLiteral("drawing.dxf"), tr("DXF drawings (*.dxf)"));
    if (file.isEmpty())
        return;
    const std::wstring wide = file.toStdWString();
    const Kt::ErrorStatus status = curDatabase()->dxfOut(wide.c_str());
    updateStatus(status == Kt::eOk ? tr("Saved %1.").arg(file)
                                   : tr("Could not save %1 (error %2).").arg(file).arg(status));
}

void BlocksPage::updateStatus(const QString& message)
{
    const bool metric = curDatabase()->measurement() == 1;
    m_status->setText(tr("%1 drawing with %2 blocks. %3")
                          .arg(metric ? tr("Metric") : tr("Imperial"))
                          .arg(blockCount())
                          .arg(message));
}
