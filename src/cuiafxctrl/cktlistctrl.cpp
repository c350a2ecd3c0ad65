#include "cktlistctrl.h"

#include "ktitemroles.h"
#include "ktsignalblock_p.h"
#include "ktstringconversion.h"

#include <QGuiApplication>
#include <QIcon>
#include <QItemSelectionModel>
#include <QRegion>
#include <QScreen>

#include <algorithm>
#include <climits>

namespace {

// The most cells (rows times columns) the structure form of InsertItem lets
// the table grow to: 2^22 cells. The model keeps a pointer per cell and the
// header a record per row, so this is already some 100 MB; a dialog's list
// never comes near it, and a bogus index far beyond it must not cost that.
constexpr qint64 kMaxCells = qint64(1) << 22;

int headerAlignment(int nFormat)
{
    switch (nFormat) {
    case LVCFMT_RIGHT:
        return Qt::AlignRight;
    case LVCFMT_CENTER:
        return Qt::AlignHCenter | Qt::AlignVCenter;
    default:
        return Qt::AlignLeft;
    }
}

// A POSITION carries a 1-based index into the list of selected rows.
POSITION toPosition(quintptr index)
{
    return reinterpret_cast<POSITION>(index);
}

quintptr fromPosition(POSITION pos)
{
    return reinterpret_cast<quintptr>(pos);
}

} // namespace

CKtListCtrl::CKtListCtrl(QWidget* pParent)
    : QTableWidget(pParent)
{ }

CKtListCtrl::~CKtListCtrl()
{
    // The model and the selection model outlive this part of the object; their
    // last signals must not reach the cache.
    forgetSelectedRows();
}

// --- Image list -------------------------------------------------------------

CKtImageList CKtListCtrl::GetImageList(unsigned int nImageList) const
{
    Q_UNUSED(nImageList);
    return m_imageList;
}

CKtImageList CKtListCtrl::SetImageList(const CKtImageList& list, int nImageListType)
{
    Q_UNUSED(nImageListType);
    return KtImageListOps::replace(m_imageList, list);
}

void CKtListCtrl::AppendItemImage(const QPixmap& image)
{
    KtImageListOps::append(m_imageList, image);
}

void CKtListCtrl::ClearItemImageList()
{
    KtImageListOps::clear(m_imageList);
}

// --- Cells --------------------------------------------------------------------

bool CKtListCtrl::hasCell(int row, int column) const
{
    return row >= 0 && column >= 0 && row < rowCount() && column < columnCount();
}

void CKtListCtrl::placeItem(int row, int column, QTableWidgetItem* item)
{
    // QTableWidget::setItem() neither takes an item it cannot place nor checks
    // the column on its own (a column past the end lands in the next row), so
    // cells outside the table are turned away here.
    if (hasCell(row, column))
        setItem(row, column, item);
    else
        delete item;
}

QRect CKtListCtrl::firstCellRect(int nItem) const
{
    // By index rather than visualItemRect(): finding an item's index can mean a search of the table.
    if (!item(nItem, 0))
        return QRect();
    return visualRect(model()->index(nItem, 0));
}

// --- Columns --------------------------------------------------------------------

int CKtListCtrl::InsertColumn(
    int nCol, const wchar_t* lpszColumnHeading, int nFormat, int nWidth, int nSubItem)
{
    Q_UNUSED(nSubItem);
    insertColumn(nCol);
    if (nCol >= 0 && nCol < columnCount()) {
        auto* heading = new QTableWidgetItem(ktutWideToQString(lpszColumnHeading));
        heading->setData(Qt::TextAlignmentRole, headerAlignment(nFormat));
        setHorizontalHeaderItem(nCol, heading);
    }
    if (nWidth != -1)
        setColumnWidth(nCol, nWidth);
    return nCol;
}

int CKtListCtrl::SetColumnWidth(int nCol, int cx)
{
    setColumnWidth(nCol, cx);
    return 1;
}

// --- Rows --------------------------------------------------------------------------

int CKtListCtrl::InsertItem(int nItem, const wchar_t* lpszItem)
{
    const int count = rowCount();
    insertRow(nItem == -1 || nItem >= count ? count : nItem);

    // The text goes to the caller's row, not to the row just inserted: for -1
    // or an index past the end the new row stays empty. Callers pass 0..count,
    // and the results below depend on this, so it stays.
    auto* cell = new QTableWidgetItem(ktutWideToQString(lpszItem), QTableWidgetItem::Type);
    // Row nItem is new, so its first cell is this item or nothing: the check box
    // can be set before the item is placed, saving a second change signal.
    if (m_checkBoxes)
        cell->setData(Qt::CheckStateRole, int(Qt::Unchecked));
    placeItem(nItem, 0, cell);
    return nItem < rowCount() ? nItem : rowCount() - 1;
}

int CKtListCtrl::InsertItem(tagLVITEMW* pItem)
{
    if (!pItem)
        return -1;
    const int row = pItem->iItem;
    const int column = pItem->iSubItem;

    // A table Qt could not allocate is refused before anything changes: the
    // model keeps one pointer per cell, and asking for rows or columns near
    // INT_MAX would end the process in Qt's allocator.
    const qint64 rows = rowCount() < row ? qint64(row) + 1 : qint64(rowCount()) + 1;
    const qint64 columns = std::max<qint64>({columnCount(), qint64(column) + 1, 1});
    if (rows * columns > kMaxCells)
        return -1;

    // This form always makes a row, even for a sub-item, and grows the table
    // with empty rows up to an index past the end.
    if (rowCount() < row)
        setRowCount(row + 1);
    else
        insertRow(row);
    if (columnCount() <= column)
        setColumnCount(column + 1);

    // Text and image are taken whatever the mask says; only LVIF_PARAM is tested.
    auto* cell = new QTableWidgetItem(ktutWideToQString(pItem->pszText), QTableWidgetItem::Type);
    if (pItem->iImage >= 0 && pItem->iImage < m_imageList.size()) {
        QIcon icon;
        icon.addPixmap(m_imageList.at(pItem->iImage), QIcon::Normal, QIcon::Off);
        cell->setData(Qt::DecorationRole, icon);
    }
    if (pItem->mask & LVIF_PARAM)
        cell->setData(KtItemRole::ItemData, qlonglong(pItem->lParam));
    // The row is new: its first cell is this item (for column 0) or empty.
    if (m_checkBoxes && column == 0)
        cell->setData(Qt::CheckStateRole, int(Qt::Unchecked));
    placeItem(row, column, cell);
    return rowCount() - 1;
}

int CKtListCtrl::DeleteItem(int nItem)
{
    const KtBlockThenUnblock blocker(this);
    // Qt's own range check of removeRow() overflows for rows near INT_MAX.
    if (nItem >= 0 && nItem < rowCount())
        removeRow(nItem);
    return 1;
}

int CKtListCtrl::DeleteAllItems()
{
    // One removal of all rows leaves the table as removing row 0 until none is
    // left would, without the quadratic cost of moving the remaining rows up
    // each time.
    const KtBlockThenUnblock blocker(this);
    setRowCount(0);
    return 1;
}

int CKtListCtrl::GetItemCount() const
{
    return rowCount();
}

// --- Text and data ---------------------------------------------------------------------

int CKtListCtrl::SetItemText(int nItem, int nSubItem, const wchar_t* lpszText)
{
    if (QTableWidgetItem* cell = item(nItem, nSubItem))
        cell->setData(Qt::DisplayRole, ktutWideToQString(lpszText));
    else if (hasCell(nItem, nSubItem))
        setItem(nItem, nSubItem, new QTableWidgetItem(ktutWideToQString(lpszText)));
    return 1;
}

KtString CKtListCtrl::GetItemText(int nItem, int nSubItem) const
{
    if (const QTableWidgetItem* cell = item(nItem, nSubItem))
        return ktutQStringToKtString(cell->text());
    return KtString(L"");
}

int CKtListCtrl::SetItemData(int nItem, unsigned long long dwData)
{
    QTableWidgetItem* cell = item(nItem, 0);
    if (!cell)
        return 0;
    cell->setData(KtItemRole::ItemData, qulonglong(dwData));
    return 1;
}

unsigned long long CKtListCtrl::GetItemData(int nItem) const
{
    const QTableWidgetItem* cell = item(nItem, 0);
    return cell ? cell->data(KtItemRole::ItemData).toULongLong() : 0;
}

// --- State and check boxes ----------------------------------------------------------------

unsigned int CKtListCtrl::GetItemState(int nItem, unsigned int nMask) const
{
    if (!(nMask & LVIS_SELECTED) || nItem < 0 || nItem >= rowCount())
        return 0;
    const int columns = columnCount();
    for (int column = 0; column < columns; ++column) {
        const QTableWidgetItem* cell = item(nItem, column);
        if (cell && cell->isSelected())
            return LVIS_SELECTED;
    }
    return 0;
}

int CKtListCtrl::SetItemState(int nItem, unsigned int nState, unsigned int nMask)
{
    // Only selecting is supported; a cleared LVIS_SELECTED deselects nothing.
    if (!(nState & nMask & LVIS_SELECTED))
        return 1;
    if (selectionBehavior() == QAbstractItemView::SelectRows)
        selectRow(nItem);
    else
        setCurrentCell(nItem, 0);
    return 1;
}

int CKtListCtrl::SetExtendedStyle(unsigned int dwExStyle)
{
    // Once on, check boxes stay on.
    if (dwExStyle & LVS_EX_CHECKBOXES)
        m_checkBoxes = 1;
    return 1;
}

int CKtListCtrl::SetCheck(int nItem, int fCheck)
{
    if (QTableWidgetItem* cell = item(nItem, 0))
        cell->setData(Qt::CheckStateRole, int(fCheck ? Qt::Checked : Qt::Unchecked));
    return 1;
}

int CKtListCtrl::GetCheck(int nItem) const
{
    const QTableWidgetItem* cell = item(nItem, 0);
    return cell && cell->data(Qt::CheckStateRole).toInt() == Qt::Checked ? 1 : 0;
}

// --- Selection queries ------------------------------------------------------------------

void CKtListCtrl::setSelectionModel(QItemSelectionModel* selectionModel)
{
    forgetSelectedRows();
    QTableWidget::setSelectionModel(selectionModel);
}

void CKtListCtrl::forgetSelectedRows() const
{
    for (const QMetaObject::Connection& connection : m_selectionWatch)
        QObject::disconnect(connection);
    m_selectionWatch.clear();
    m_selectedRows.clear();
    m_selectedRowsValid = false;
}

const QModelIndexList& CKtListCtrl::selectedRowList() const
{
    // selectedRows() costs time in proportion to the selection, so taking it
    // afresh for every step of a walk would make the walk quadratic. The list
    // is kept instead until something that could change it happens: a change of
    // selection, rows or columns coming, going or moving, a new layout or
    // model, or new item flags (only those decide whether a cell can be
    // selected; other data changes come with their roles and are let through,
    // so that a walk may edit the rows it visits).
    if (m_selectedRowsValid)
        return m_selectedRows;
    QItemSelectionModel* selection = selectionModel();
    m_selectedRows = selection ? selection->selectedRows(0) : QModelIndexList();
    m_selectedRowsValid = true;

    const auto forget = [this] { forgetSelectedRows(); };
    QAbstractItemModel* m = model();
    if (selection)
        m_selectionWatch.push_back(connect(selection, &QItemSelectionModel::selectionChanged, this, forget));
    m_selectionWatch.push_back(connect(m, &QAbstractItemModel::rowsInserted, this, forget));
    m_selectionWatch.push_back(connect(m, &QAbstractItemModel::rowsRemoved, this, forget));
    m_selectionWatch.push_back(connect(m, &QAbstractItemModel::rowsMoved, this, forget));
    m_selectionWatch.push_back(connect(m, &QAbstractItemModel::columnsInserted, this, forget));
    m_selectionWatch.push_back(connect(m, &QAbstractItemModel::columnsRemoved, this, forget));
    m_selectionWatch.push_back(connect(m, &QAbstractItemModel::columnsMoved, this, forget));
    m_selectionWatch.push_back(connect(m, &QAbstractItemModel::layoutChanged, this, forget));
    m_selectionWatch.push_back(connect(m, &QAbstractItemModel::modelReset, this, forget));
    m_selectionWatch.push_back(connect(m, &QAbstractItemModel::dataChanged, this,
        [this](const QModelIndex&, const QModelIndex&, const QVector<int>& roles) {
            if (roles.isEmpty())
                forgetSelectedRows();
        }));
    return m_selectedRows;
}

int CKtListCtrl::GetSelectedCount() const
{
    return selectedRowList().size();
}

POSITION CKtListCtrl::GetFirstSelectedItemPosition() const
{
    // A new walk always starts from the selection as it is now.
    forgetSelectedRows();
    return selectedRowList().isEmpty() ? nullptr : toPosition(1);
}

int CKtListCtrl::GetNextSelectedItem(POSITION& pos) const
{
    if (!pos)
        return -1;
    const quintptr index = fromPosition(pos);
    const QModelIndexList& rows = selectedRowList();
    const quintptr count = quintptr(rows.size());
    if (index > count) {
        pos = nullptr;
        return 0;
    }
    const int row = rows.at(int(index - 1)).row();
    pos = index + 1 > count ? nullptr : toPosition(index + 1);
    return row;
}

int CKtListCtrl::GetNextItem(int nItem, int nFlags) const
{
    if (!(unsigned(nFlags) & LVNI_SELECTED))
        return -1;
    // The cells selectedItems() would give, in its order (visible cells that
    // have an item), without looking up each item's row afterwards.
    QItemSelectionModel* selection = selectionModel();
    if (!selection)
        return -1;
    const QModelIndexList indexes = selection->selectedIndexes();
    for (const QModelIndex& index : indexes) {
        if (isIndexHidden(index) || !item(index.row(), index.column()))
            continue;
        if (index.row() != nItem)
            return index.row();
    }
    return -1;
}

// --- Geometry, visibility, editing ---------------------------------------------------------------

int CKtListCtrl::GetItemRect(int nItem, tagRECT* lpRect, unsigned int nCode) const
{
    Q_UNUSED(nCode);
    if (!lpRect || !item(nItem, 0))
        return 0;
    const QRect r = firstCellRect(nItem);
    lpRect->left = r.x();
    lpRect->top = r.y();
    lpRect->right = r.x() + r.width();
    lpRect->bottom = r.y() + r.height();
    return 1;
}

int CKtListCtrl::EnsureVisible(int nItem, int bPartialOK)
{
    Q_UNUSED(bPartialOK);
    if (item(nItem, 0))
        scrollTo(model()->index(nItem, 0), QAbstractItemView::EnsureVisible);
    return 1;
}

int CKtListCtrl::RedrawItems(int nFirst, int nLast)
{
    // Rows outside the table have no first cell to add, so the walk is bounded by the table.
    QRegion region;
    const QRect visible = viewport()->rect();
    const int last = std::min(nLast, rowCount());
    for (int row = std::max(nFirst, 0); row < last; ++row) {
        const QRect r = firstCellRect(row).intersected(visible);
        if (!r.isEmpty())
            region += r;
    }
    // The rectangles are the viewport's, so the viewport is what is repainted.
    viewport()->repaint(region);
    return 1;
}

int CKtListCtrl::HitTest(CPoint pt, unsigned int* pFlags) const
{
    Q_UNUSED(pFlags);
    const QModelIndex index = indexAt(pt);
    if (!index.isValid() || !item(index.row(), index.column()))
        return -1;
    return index.row();
}

int CKtListCtrl::EditLabel(int nItem)
{
    if (item(nItem, 0))
        edit(model()->index(nItem, 0));
    return 1;
}

QPixmap CKtListCtrl::CreateDragImage(int nItem, tagPOINT* lpPoint)
{
    Q_UNUSED(lpPoint);
    QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen)
        return QPixmap();
    const QRect r = firstCellRect(nItem);
    // The corners are mapped with the control's own mapping, as callers expect.
    const QPoint topLeft = mapToGlobal(r.topLeft());
    const QPoint bottomRight = mapToGlobal(r.bottomRight());
    return screen->grabWindow(winId(), topLeft.x(), topLeft.y(), bottomRight.x() - topLeft.x() + 1,
        bottomRight.y() - topLeft.y() + 1);
}
