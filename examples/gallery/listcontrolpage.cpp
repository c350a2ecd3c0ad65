#include "listcontrolpage.h"

#include <CKtListCtrl>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <ktstringconversion.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

// The seven standard colours of the drawing program, by index 1..7.
struct Colour
{
    const wchar_t* name;
    QColor color;
};

const Colour kColours[] = {
    {L"red", QColor(230, 40, 40)},
    {L"yellow", QColor(240, 220, 40)},
    {L"green", QColor(40, 190, 70)},
    {L"cyan", QColor(40, 200, 220)},
    {L"blue", QColor(40, 80, 230)},
    {L"magenta", QColor(210, 50, 200)},
    {L"white", QColor(250, 250, 250)},
};
constexpr int kColourCount = int(sizeof kColours / sizeof kColours[0]);

QPixmap swatch(const QColor& color)
{
    QPixmap pixmap(14, 14);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setPen(QColor(90, 90, 90));
    p.setBrush(color);
    p.drawRect(1, 1, 11, 11);
    return pixmap;
}

std::wstring wide(const QString& text)
{
    return text.toStdWString();
}

} // namespace

ListControlPage::ListControlPage(QWidget* parent)
    : QWidget(parent)
    , m_list(new CKtListCtrl(this))
    , m_status(new QLabel(this))
{
    m_list->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->verticalHeader()->setVisible(false);
    m_list->horizontalHeader()->setStretchLastSection(true);
    m_status->setWordWrap(true);

    auto* add = new QPushButton(tr("New layer"), this);
    auto* remove = new QPushButton(tr("Delete selected"), this);
    auto* rename = new QPushButton(tr("Rename"), this);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(add);
    buttons->addWidget(remove);
    buttons->addWidget(rename);
    buttons->addStretch();

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_list);
    layout->addLayout(buttons);
    layout->addWidget(m_status);

    connect(add, &QPushButton::clicked, this, &ListControlPage::newLayer);
    connect(remove, &QPushButton::clicked, this, &ListControlPage::deleteSelected);
    connect(rename, &QPushButton::clicked, this, &ListControlPage::renameSelected);
    // The user's own clicks and edits signal; the page's own changes below do not all do so.
    connect(m_list, &QTableWidget::itemSelectionChanged, this, &ListControlPage::showState);
    connect(m_list, &QTableWidget::itemChanged, this, &ListControlPage::showState);
    fill();
}

void ListControlPage::fill()
{
    m_list->InsertColumn(0, L"Layer", LVCFMT_LEFT, 170);
    m_list->InsertColumn(1, L"Colour", LVCFMT_LEFT, 90);
    m_list->InsertColumn(2, L"Linetype", LVCFMT_LEFT, 130);
    m_list->InsertColumn(3, L"Lineweight", LVCFMT_RIGHT, -1);
    for (const Colour& colour : kColours)
        m_list->AppendItemImage(swatch(colour.color));
    m_list->SetExtendedStyle(LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);

    addLayer(L"0", 6, L"Continuous", L"Default", true);
    addLayer(L"Walls", 0, L"Continuous", L"0.50 mm", true);
    addLayer(L"Doors", 1, L"Continuous", L"0.25 mm", true);
    addLayer(L"Hidden", 4, L"HIDDEN", L"0.18 mm", false);
    addLayer(L"Centre lines", 3, L"CENTER", L"0.13 mm", true);
    addLayer(L"Dimensions", 2, L"Continuous", L"0.18 mm", true);
    addLayer(L"Text 文字", 5, L"Continuous", L"Default", true);
    addLayer(L"Defpoints", 6, L"Continuous", L"Default", false);

    m_list->SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
    showState();
}

void ListControlPage::addLayer(
    const wchar_t* name, int colour, const wchar_t* linetype, const wchar_t* lineweight, bool on)
{
    // The row, its name, swatch and layer id in one go; the other columns by sub-item.
    tagLVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM;
    item.iItem = m_list->GetItemCount();
    item.pszText = const_cast<wchar_t*>(name);
    item.iImage = colour;
    item.lParam = m_nextId++;
    const int row = m_list->InsertItem(&item);
    m_list->SetItemText(row, 1, kColours[colour].name);
    m_list->SetItemText(row, 2, linetype);
    m_list->SetItemText(row, 3, lineweight);
    m_list->SetCheck(row, on);
}

void ListControlPage::newLayer()
{
    const std::wstring name = wide(tr("Layer%1").arg(m_nextId));
    addLayer(name.c_str(), m_nextId % kColourCount, L"Continuous", L"Default", true);
    const int row = m_list->GetItemCount() - 1;
    m_list->SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
    m_list->EnsureVisible(row, 0);
}

void ListControlPage::deleteSelected()
{
    std::vector<int> rows;
    for (POSITION pos = m_list->GetFirstSelectedItemPosition(); pos;)
        rows.push_back(m_list->GetNextSelectedItem(pos));
    // From the bottom up, so that the rows still to go keep their indices.
    std::sort(rows.rbegin(), rows.rend());
    for (int row : rows) {
        if (m_list->GetItemText(row, 0) != KtString(L"0")) // layer 0 cannot be deleted
            m_list->DeleteItem(row);
    }
    showState(); // deleting emits nothing
}

void ListControlPage::renameSelected()
{
    POSITION pos = m_list->GetFirstSelectedItemPosition();
    if (pos)
        m_list->EditLabel(m_list->GetNextSelectedItem(pos));
}

void ListControlPage::showState()
{
    int on = 0;
    for (int row = 0; row < m_list->GetItemCount(); ++row)
        on += m_list->GetCheck(row);
    QStringList selected;
    for (POSITION pos = m_list->GetFirstSelectedItemPosition(); pos;) {
        const int row = m_list->GetNextSelectedItem(pos);
        selected << tr("%1 (id %2)")
                        .arg(ktutKtStringToQString(m_list->GetItemText(row, 0)))
                        .arg(m_list->GetItemData(row));
    }
    m_status->setText(tr("%1 layers, %2 on; %3 selected: %4")
                          .arg(m_list->GetItemCount())
                          .arg(on)
                          .arg(m_list->GetSelectedCount())
                          .arg(selected.isEmpty() ? tr("none") : selected.join(QStringLiteral(", "))));
}
