#pragma once

#include "cktafxtypes.h"
#include "cktimagelist.h"
#include "ktcmdqtutils_export.h"

#include <KtString>
#include <QMetaObject>
#include <QModelIndexList>
#include <QPixmap>
#include <QTableWidget>

#include <vector>

/**
 * @brief A QTableWidget with the report-view list-control API of the foundation classes.
 *
 * An item is a row index (-1 for none) and a sub-item a column index. The
 * item's own text, data, icon and check box live in the cell of column 0;
 * item data is kept under KtItemRole::ItemData. Results are BOOL-style: 1 for
 * success, 0 for failure, -1 for no row.
 *
 * Some behaviours differ from the classic control on purpose and are kept:
 * InsertItem(int, const wchar_t*) places the text at the caller's index even
 * when it appended the row elsewhere, the structure form returns the last row,
 * LVIS_SELECTED is the only state, check boxes once switched on stay on,
 * GetNextItem() returns another selected row rather than the next one,
 * RedrawItems() excludes its last row and GetItemRect() gives the first cell.
 *
 * @see @ref controls
 */
class KTCMDQTUTILS_EXPORT CKtListCtrl : public QTableWidget
{
    Q_OBJECT

public:
    /// An empty table; no column, header or selection setting is changed.
    explicit CKtListCtrl(QWidget* pParent = nullptr);
    ~CKtListCtrl() override;

    /// @name Image list
    /// @{

    /// A copy of the image list; @p nImageList is ignored (there is one list).
    CKtImageList GetImageList(unsigned int nImageList) const;
    /// Installs @p list and returns the previous list; existing icons are not rebuilt.
    CKtImageList SetImageList(const CKtImageList& list, int nImageListType);
    /// Appends @p image to the image list; existing items keep their icons.
    void AppendItemImage(const QPixmap& image);
    /// Empties the image list; items keep their icons.
    void ClearItemImageList();
    /// @}

    /// @name Columns
    /// @{
    /**
     * Inserts column @p nCol with a heading aligned by @p nFormat (LVCFMT_RIGHT,
     * LVCFMT_CENTER, otherwise left) and, unless @p nWidth is -1, that width.
     * Returns @p nCol. @p nSubItem is ignored.
     */
    int InsertColumn(int nCol, const wchar_t* lpszColumnHeading, int nFormat = LVCFMT_LEFT, int nWidth = -1,
        int nSubItem = -1);
    /// Sets the width of column @p nCol to @p cx pixels; returns 1, also for a column that does not exist.
    int SetColumnWidth(int nCol, int cx);
    /// @}

    /// @name Rows
    /// @{
    /**
     * Inserts a row at @p nItem, or appends one when @p nItem is -1 or past the
     * end, and puts the text in column 0 of row @p nItem: for -1 and for an
     * index past the end the new row stays empty. Returns @p nItem when it is
     * below the row count, else the last row (so -1 for -1).
     */
    int InsertItem(int nItem, const wchar_t* lpszItem);
    /**
     * Inserts a row at @p pItem->iItem (growing the table with empty rows when
     * it lies past the end, and adding columns up to iSubItem), then fills the
     * cell (iItem, iSubItem) with the text and the image iImage; lParam becomes
     * the item data when LVIF_PARAM is in the mask. Returns the index of the
     * last row, whatever iItem was; -1 for a null @p pItem, and -1 with the
     * table unchanged when the table would grow past 2^22 cells.
     */
    int InsertItem(tagLVITEMW* pItem);
    /// Removes the row without emitting signals; 1 also for a row that does not exist.
    int DeleteItem(int nItem);
    /// Removes every row (the columns stay) without emitting signals.
    int DeleteAllItems();
    /// Number of rows.
    int GetItemCount() const;
    /// @}

    /// @name Text and data
    /// @{

    /// Sets the text of the cell, creating its item when needed; 1 also for a cell outside the table.
    int SetItemText(int nItem, int nSubItem, const wchar_t* lpszText);
    /// Text of the cell; empty when the cell has no item.
    KtString GetItemText(int nItem, int nSubItem) const;
    /// 0 when column 0 of the row has no item.
    int SetItemData(int nItem, unsigned long long dwData);
    /// The item data of the row; 0 when none is stored or column 0 of the row has no item.
    unsigned long long GetItemData(int nItem) const;
    /// @}

    /// @name State and check boxes
    /// @{

    /// LVIS_SELECTED when @p nMask asks for it and a cell of the row is selected; otherwise 0.
    unsigned int GetItemState(int nItem, unsigned int nMask) const;
    /**
     * Selects the row when @p nState and @p nMask both hold LVIS_SELECTED (with
     * SelectRows behaviour; otherwise makes cell (nItem, 0) current). Nothing
     * is ever deselected. Returns 1.
     */
    int SetItemState(int nItem, unsigned int nState, unsigned int nMask);
    /// LVS_EX_CHECKBOXES gives every row inserted afterwards a check box, for good; other bits are ignored.
    int SetExtendedStyle(unsigned int dwExStyle);
    /// Checks or unchecks column 0 of the row; 1 also when it has no item.
    int SetCheck(int nItem, int fCheck = 1);
    /// 1 when column 0 of the row is checked, else 0 (also when it has no item).
    int GetCheck(int nItem) const;
    /// @}

    /// @name Selection queries
    /// @{

    /// Number of rows whose every cell is selected.
    int GetSelectedCount() const;
    /// Position of the first fully selected row, or null when there is none.
    POSITION GetFirstSelectedItemPosition() const;
    /**
     * The selected row at @p pos, advancing @p pos (null after the last one).
     * Rows come in the selection model's order. A position past the end gives
     * 0 and null; a null position gives -1.
     */
    int GetNextSelectedItem(POSITION& pos) const;
    /**
     * With LVNI_SELECTED: the row of the first selected cell whose row is not
     * @p nItem (another selected row, not the next one), or -1. Without it: -1.
     */
    int GetNextItem(int nItem, int nFlags) const;
    /// @}

    /// @name Geometry, visibility, editing
    /// @{

    /// Writes the viewport rectangle of the first cell of the row (right and bottom exclusive).
    int GetItemRect(int nItem, tagRECT* lpRect, unsigned int nCode) const;
    /// Scrolls column 0 of the row into view; 1 also for a missing row.
    int EnsureVisible(int nItem, int bPartialOK);
    /// Repaints, at once, the first cells of rows @p nFirst up to but not including @p nLast.
    int RedrawItems(int nFirst, int nLast);
    /// Row of the item at @p pt (viewport coordinates), or -1; @p pFlags is not written.
    int HitTest(CPoint pt, unsigned int* pFlags = nullptr) const;
    /// Opens the editor of column 0 of the row; returns 1.
    int EditLabel(int nItem);
    /// Grabs the screen area of the first cell of the row; @p lpPoint is not written.
    QPixmap CreateDragImage(int nItem, tagPOINT* lpPoint);
    /// @}

    /// QTableWidget::setSelectionModel(); the selection queries then read the new model.
    void setSelectionModel(QItemSelectionModel* selectionModel) override;

private:
    bool hasCell(int row, int column) const;
    void placeItem(int row, int column, QTableWidgetItem* item);
    QRect firstCellRect(int nItem) const;
    const QModelIndexList& selectedRowList() const;
    void forgetSelectedRows() const;

    CKtImageList m_imageList;
    int m_checkBoxes = 0;

    // selectedRows(0) as last taken, kept while nothing that could change it has
    // happened; the connections that say so exist only while it is kept.
    mutable QModelIndexList m_selectedRows;
    mutable bool m_selectedRowsValid = false;
    mutable std::vector<QMetaObject::Connection> m_selectionWatch;
};
