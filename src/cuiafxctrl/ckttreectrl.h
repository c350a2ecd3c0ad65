#pragma once

#include "cktafxtypes.h"
#include "cktimagelist.h"
#include "ktcmdqtutils_export.h"

#include <KtString>
#include <QPixmap>
#include <QTreeWidget>

#include <memory>

/**
 * @brief A QTreeWidget with the foundation-class tree-control API.
 *
 * An item handle is the QTreeWidgetItem itself; a null handle means no item
 * and, as a parent, the root. Item data, image indices, state bits and the
 * check-state mirror live in column 0 under the roles of KtItemRole. Results
 * are BOOL-style: 1 for success, 0 for failure, null for no item.
 *
 * Some behaviours differ from the classic control on purpose and are kept:
 * the constructor does not pass its parent on, GetNextItem() only tests bit 0
 * of its code, SetItemState() clears masked bits only when all of them are
 * set, GetItemState(item, TVIS_STATEIMAGEMASK) reads the item's siblings,
 * ExpandAll() and CollapseAll() record the state only below the root item,
 * and HitTest() always reports 7.
 *
 * A handle that is not an item of this tree now (TVI_ROOT and the other
 * pseudo handles, an item deleted or taken out by any means, an item of
 * another tree) is treated as a null item by every call; such handles are
 * never dereferenced.
 *
 * @see @ref controls
 */
class KTCMDQTUTILS_EXPORT CKtTreeCtrl : public QTreeWidget
{
    Q_OBJECT

public:
    /// Builds a tree with a hidden header. @p pParent is deliberately not used as the Qt parent.
    explicit CKtTreeCtrl(QWidget* pParent = nullptr);
    ~CKtTreeCtrl() override;

    /// @name Image list
    /// @{

    /// A copy of the image list; @p nImageList is ignored (there is one list).
    CKtImageList GetImageList(unsigned int nImageList) const;
    /// Installs @p list and returns the previous list; existing icons are not rebuilt.
    CKtImageList SetImageList(const CKtImageList& list, int nImageListType);
    /// Appends @p image to the image list; existing items keep their icons.
    void AppendItemImage(const QPixmap& image);
    /// Empties the image list; items keep their icons and indices.
    void ClearItemImageList();
    /// @}

    /// @name Insertion
    /// @{
    /**
     * Inserts an item under @p hParent (null: at the end of the top level)
     * after @p hInsertAfter when that is a direct child of @p hParent, else
     * as the last child. The icon is set when both image indices are valid;
     * the indices are stored either way. Never returns null.
     */
    QTreeWidgetItem* InsertItem(const wchar_t* lpszItem, int nImage, int nSelectedImage,
        QTreeWidgetItem* hParent = nullptr, QTreeWidgetItem* hInsertAfter = nullptr);
    /// Inserts with images 0 and 0 as the last child of @p hParent.
    QTreeWidgetItem* InsertItem(const wchar_t* lpszItem, QTreeWidgetItem* hParent = nullptr);
    /// Inserts from text, images, parent and insert-after of @p pInsert; null gives null.
    QTreeWidgetItem* InsertItem(tagTVINSERTSTRUCT* pInsert);
    /// @}

    /// @name Item values
    /// @{

    /// Sets the text of column 0 (itemChanged() is emitted); 0 for a null item.
    int SetItemText(QTreeWidgetItem* hItem, const wchar_t* lpszItem);
    /// Text of column 0; empty for a null item.
    KtString GetItemText(QTreeWidgetItem* hItem) const;
    /// Sets icon and indices; 0 unless both indices are valid image indices.
    int SetItemImage(QTreeWidgetItem* hItem, int nImage, int nSelectedImage);
    /// Writes -1 to both outputs, then the stored indices when @p hItem is non-null.
    int GetItemImage(QTreeWidgetItem* hItem, int& nImage, int& nSelectedImage) const;
    /// Stores @p dwData under KtItemRole::ItemData; 0 for a null item.
    int SetItemData(QTreeWidgetItem* hItem, unsigned long long dwData);
    /// The stored item data; 0 when there is none or for a null item.
    unsigned long long GetItemData(QTreeWidgetItem* hItem) const;
    /**
     * Changes the stored state bits. TVIS_STATEIMAGEMASK sets the check state
     * from state image @p nState >> 12 instead; 0xFFFFFFFF replaces all bits;
     * mask 1 clears TVIS_EXPANDED; any other mask clears its bits only when all
     * of them are set, then ORs in @p nState. Emits no itemChanged().
     */
    int SetItemState(QTreeWidgetItem* hItem, unsigned int nState, unsigned int nStateMask);
    /**
     * The stored state bits, unmasked. With TVIS_STATEIMAGEMASK: the check
     * summary of the item and its siblings (0x1000 none, 0x2000 some, 0x3000
     * all checked), or of the item's own check box for a top-level item.
     */
    unsigned int GetItemState(QTreeWidgetItem* hItem, unsigned int nStateMask) const;
    /// Writes visualItemRect() with exclusive right and bottom edges; 0 when @p lpRect is null.
    int GetItemRect(QTreeWidgetItem* hItem, tagRECT* lpRect, int bTextOnly) const;
    /// @}

    /// @name Navigation
    /// @{

    /// The first top-level item, or the invisible root item of an empty tree.
    QTreeWidgetItem* GetRootItem() const;
    /// The current item (not read from the TVIS_SELECTED bits); null when there is none.
    QTreeWidgetItem* GetSelectedItem() const;
    /// The parent; null for a top-level item or a null item.
    QTreeWidgetItem* GetParentItem(QTreeWidgetItem* hItem) const;
    /// The first child; for a null item the first top-level item.
    QTreeWidgetItem* GetChildItem(QTreeWidgetItem* hItem) const;
    /// The next item under the same parent; null after the last one or for a null item.
    QTreeWidgetItem* GetNextSiblingItem(QTreeWidgetItem* hItem) const;
    /// The previous item under the same parent; null before the first one or for a null item.
    QTreeWidgetItem* GetPrevSiblingItem(QTreeWidgetItem* hItem) const;
    /// The next sibling when bit 0 of @p nCode is set (TVGN_NEXT, also TVGN_CARET, ...), else null.
    QTreeWidgetItem* GetNextItem(QTreeWidgetItem* hItem, unsigned int nCode) const;
    /// The item at the top-left corner of the viewport.
    QTreeWidgetItem* GetFirstVisibleItem() const;
    /// 1 when the item has children, else 0 (also for a null item).
    int ItemHasChildren(QTreeWidgetItem* hItem) const;
    /// Number of items in the whole tree, collapsed branches included.
    unsigned int GetCount() const;
    /// Number of items laid out (not hidden, not in a collapsed branch), scrolled into view or not.
    unsigned int GetVisibleCount() const;
    /// The item at @p pt (viewport coordinates); always writes 7 to @p pFlags.
    QTreeWidgetItem* HitTest(QPoint pt, unsigned int* pFlags = nullptr) const;
    /// @}

    /// @name Selection, editing, expansion
    /// @{

    /// Moves TVIS_SELECTED to @p hItem and makes it current (null clears the current item).
    int SelectItem(QTreeWidgetItem* hItem);
    /// Only TVGN_CARET is honoured; other codes give 0.
    int Select(QTreeWidgetItem* hItem, unsigned int nCode);
    /// Makes @p hItem accept drops; no highlight is drawn.
    int SelectDropTarget(QTreeWidgetItem* hItem);
    /// Scrolls the item into view (QTreeWidget::scrollToItem()); 0 for a null item.
    int EnsureVisible(QTreeWidgetItem* hItem);
    /// Makes the item editable (without signals) and opens its editor; 1, or 0 for a null item.
    int EditLabel(QTreeWidgetItem* hItem);
    /// TVE_EXPAND and TVE_TOGGLE expand, TVE_COLLAPSE collapses, any other code expands.
    int Expand(QTreeWidgetItem* hItem, unsigned int nCode);
    /// Expand() on @p hItem and every descendant that has children, depth first.
    int ExpandAllChild(QTreeWidgetItem* hItem, unsigned int nCode);
    /// Expands the view; records TVIS_EXPANDED on the descendants of GetRootItem() only.
    void ExpandAll();
    /// Collapses the view; clears TVIS_EXPANDED on the descendants of GetRootItem() only.
    void CollapseAll();
    /// @}

    /// @name Check boxes
    /// @{

    /// Items inserted afterwards get @p flags and an unchecked box while @p bCheck is non-zero.
    void SetCheckBoxes(int bCheck, QFlags<Qt::ItemFlag> flags = Qt::ItemIsUserCheckable);
    /// The @p bCheck last given to SetCheckBoxes(); 0 before any call.
    int GetCheckBoxes() const;
    /// Checks the item (@p fCheck non-zero) or unchecks it, signals not blocked; 0 for a null item.
    int SetCheck(QTreeWidgetItem* hItem, int fCheck = 1);
    /// 1 when the check state last set by program is Qt::Checked; user clicks are not seen.
    int GetCheck(QTreeWidgetItem* hItem) const;
    /// @}

    /// @name Deletion and drag image
    /// @{

    /// Deletes the item and its subtree without emitting signals; 1 also for a null item.
    int DeleteItem(QTreeWidgetItem* hItem);
    /// Removes every item (QTreeWidget::clear()); returns 1.
    int DeleteAllItems();
    /// Grabs the screen area of the item; the caller owns the pixmap.
    QPixmap CreateDragImage(QTreeWidgetItem* hItem);
    /// @}

private:
    QTreeWidgetItem* live(QTreeWidgetItem* hItem) const;
    QTreeWidgetItem* found(QTreeWidgetItem* item) const;
    /// Adds the items of rows @p first to @p last under @p parent, subtrees included, or takes them out.
    void trackRows(const QModelIndex& parent, int first, int last, bool inserted);
    void trackAll();
    QTreeWidgetItem* containerOf(QTreeWidgetItem* hItem) const;
    int rowOf(QTreeWidgetItem* container, const QTreeWidgetItem* hItem) const;
    QTreeWidgetItem* siblingAt(QTreeWidgetItem* hItem, int offset) const;
    void markDescendantsExpanded(bool expanded);
    QTreeWidgetItem* buildItem(const QString& text, int nImage, int nSelectedImage) const;
    QTreeWidgetItem* newItem(const QString& text, int nImage, int nSelectedImage);

    CKtImageList m_imageList;
    int m_checkBoxes = 0;
    QFlags<Qt::ItemFlag> m_checkBoxFlags;
    mutable int m_rowHint = 0; // last row found by rowOf(); speeds up sibling walks

    // The last item built without an icon, and what it was built from; newItem() copies it.
    struct ItemTemplate
    {
        std::unique_ptr<QTreeWidgetItem> item;
        int image = 0;
        int selectedImage = 0;
        bool checkBox = false;
        QFlags<Qt::ItemFlag> checkBoxFlags;
    };
    ItemTemplate m_itemTemplate;

    // Every item of the tree, kept in step with the model's insertions and
    // removals, so that handles can be checked before they are used.
    struct LiveItems;
    std::unique_ptr<LiveItems> m_live;
};
