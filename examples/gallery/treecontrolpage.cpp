#include "treecontrolpage.h"

#include <CKtTreeCtrl>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <ktstringconversion.h>

namespace {

// A small folder or sheet picture for the image list.
QPixmap swatch(const QColor& color, bool folder)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(color.darker(160));
    p.setBrush(color);
    if (folder) {
        p.drawRect(1, 4, 14, 10);
        p.drawRect(1, 2, 6, 2);
    } else {
        p.drawRect(3, 1, 10, 14);
        p.drawLine(5, 5, 11, 5);
        p.drawLine(5, 8, 11, 8);
    }
    return pixmap;
}

} // namespace

TreeControlPage::TreeControlPage(QWidget* parent)
    : QWidget(parent)
    , m_tree(new CKtTreeCtrl(this))
    , m_status(new QLabel(this))
{
    // The control does not take its constructor argument as parent; the layout adopts it.
    auto* buttons = new QHBoxLayout;
    auto* expand = new QPushButton(tr("Expand all"), this);
    auto* collapse = new QPushButton(tr("Collapse all"), this);
    buttons->addWidget(expand);
    buttons->addWidget(collapse);
    buttons->addStretch();

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tree);
    layout->addLayout(buttons);
    layout->addWidget(m_status);

    connect(expand, &QPushButton::clicked, this, [this] {
        m_tree->ExpandAll();
        showState();
    });
    connect(collapse, &QPushButton::clicked, this, [this] {
        m_tree->CollapseAll();
        showState();
    });
    connect(m_tree, &QTreeWidget::currentItemChanged, this, &TreeControlPage::showState);
    fill();
}

void TreeControlPage::fill()
{
    m_tree->AppendItemImage(swatch(QColor(240, 200, 80), true));
    m_tree->AppendItemImage(swatch(QColor(250, 230, 150), true));
    m_tree->AppendItemImage(swatch(QColor(200, 220, 250), false));
    m_tree->SetCheckBoxes(1);

    QTreeWidgetItem* drawing = m_tree->InsertItem(L"Drawing1.dwg", 0, 1, nullptr, nullptr);
    QTreeWidgetItem* layers = m_tree->InsertItem(L"Layers", 0, 1, drawing, nullptr);
    const wchar_t* layerNames[] = {L"0", L"Dimensions", L"Hatch", L"Text 文字", L"Defpoints"};
    for (const wchar_t* name : layerNames)
        m_tree->InsertItem(name, 2, 2, layers, nullptr);
    QTreeWidgetItem* blocks = m_tree->InsertItem(L"Blocks", 0, 1, drawing, layers);
    QTreeWidgetItem* last = nullptr;
    for (const wchar_t* name : {L"_Open", L"_Dot", L"_ArchTick", L"_Oblique"})
        last = m_tree->InsertItem(name, 2, 2, blocks, last);
    m_tree->InsertItem(L"Layouts", 0, 1, drawing, blocks);

    for (int i = 0; i < layers->childCount(); ++i)
        m_tree->SetCheck(layers->child(i), i != 2);
    m_tree->SetItemData(drawing, 0xD0C1);

    m_tree->Expand(drawing, TVE_EXPAND);
    m_tree->Expand(layers, TVE_EXPAND);
    m_tree->Expand(blocks, TVE_EXPAND);
    m_tree->SelectItem(layers->child(1));
}

void TreeControlPage::showState()
{
    QTreeWidgetItem* item = m_tree->GetSelectedItem();
    const KtString text = m_tree->GetItemText(item);
    m_status->setText(tr("%1 items, %2 laid out; selected \"%3\", state 0x%4, check summary 0x%5")
                          .arg(m_tree->GetCount())
                          .arg(m_tree->GetVisibleCount())
                          .arg(ktutKtStringToQString(text))
                          .arg(m_tree->GetItemState(item, TVIS_SELECTED), 0, 16)
                          .arg(m_tree->GetItemState(item, TVIS_STATEIMAGEMASK), 0, 16));
}
