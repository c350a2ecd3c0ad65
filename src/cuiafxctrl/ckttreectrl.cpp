#include "ckttreectrl.h"

#include "ktitemroles.h"
#include "ktpointerset_p.h"
#include "ktsignalblock_p.h"
#include "ktstringconversion.h"

#include <KtQtBlockSignalUtil>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScreen>

#include <utility>
#include <vector>

namespace {

constexpr unsigned int kAllStateBits = 0xFFFFFFFFu;
constexpr unsigned int kPrivateCollapseMask = 1;

unsigned int storedState(const QTreeWidgetItem* item)
{
    return item->data(0, KtItemRole::State).toUInt();
}

// Pre-order walk below (not including) @p root, with an explicit stack so that
// deep trees cannot overflow the call stack. Children are fetched by index when
// they are reached, as a recursive walk would: slots run by @p visit may add or
// remove items under the ones still to come.
template <class Visit>
void forEachDescendant(QTreeWidgetItem* root, Visit visit)
{
    std::vector<std::pair<QTreeWidgetItem*, int>> stack{{root, 0}};
    while (!stack.empty()) {
        QTreeWidgetItem* parent = stack.back().first;
        const int next = stack.back().second++;
        if (next >= parent->childCount()) {
            stack.pop_back();
            continue;
        }
        QTreeWidgetItem* item = parent->child(next);
        visit(item);
        stack.emplace_back(item, 0);
    }
}

} // namespace

struct CKtTreeCtrl::LiveItems
{
    KtPointerSet items;
    // Bumped by every insertion and removal; with it the item a navigation
    // call returned last is known to be live without a look-up, which keeps
    // sibling walks fast.
    quint64 version = 0;
    const QTreeWidgetItem* lastFound = nullptr;
    quint64 lastFoundVersion = 0;
};

CKtTreeCtrl::CKtTreeCtrl(QWidget* pParent)
    : QTreeWidget(nullptr)
    , m_live(std::make_unique<LiveItems>())
{
    // Host dialogs place the control themselves; the parent is deliberately not taken.
    Q_UNUSED(pParent);
    setHeaderHidden(true);
    if (header())
        header()->setVisible(false);

    QAbstractItemModel* items = model();
    connect(items, &QAbstractItemModel::rowsInserted, this,
        [this](const QModelIndex& parent, int first, int last) { trackRows(parent, first, last, true); });
    connect(items, &QAbstractItemModel::rowsAboutToBeRemoved, this,
        [this](const QModelIndex& parent, int first, int last) { trackRows(parent, first, last, false); });
    connect(items, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        ++m_live->version;
        m_live->items.clear();
    });
    connect(items, &QAbstractItemModel::modelReset, this, &CKtTreeCtrl::trackAll);
}

CKtTreeCtrl::~CKtTreeCtrl()
{
    // The model outlives this part of the object and clears itself when it
    // goes: it must not reach the set of live items any more.
    disconnect(model(), nullptr, this, nullptr);
}

// --- Handles --------------------------------------------------------------------

QTreeWidgetItem* CKtTreeCtrl::live(QTreeWidgetItem* hItem) const
{
    // Pointers are compared, never followed: pseudo handles and dangling ones are simply not found.
    if (!hItem)
        return nullptr;
    if (hItem == m_live->lastFound && m_live->lastFoundVersion == m_live->version)
        return hItem;
    if (hItem == invisibleRootItem() || m_live->items.contains(hItem))
        return hItem;
    return nullptr;
}

QTreeWidgetItem* CKtTreeCtrl::found(QTreeWidgetItem* item) const
{
    m_live->lastFound = item;
    m_live->lastFoundVersion = m_live->version;
    return item;
}

void CKtTreeCtrl::trackRows(const QModelIndex& parent, int first, int last, bool inserted)
{
    ++m_live->version;
    QTreeWidgetItem* container = parent.isValid() ? itemFromIndex(parent) : invisibleRootItem();
    if (!container)
        return;
    const auto track = [this, inserted](QTreeWidgetItem* item) {
        if (inserted)
            m_live->items.insert(item);
        else
            m_live->items.erase(item);
    };
    for (int row = first; row <= last; ++row) {
        QTreeWidgetItem* item = container->child(row);
        if (!item)
            continue;
        track(item);
        // An item may come with a subtree of its own (a taken item put back, say).
        if (item->childCount() > 0)
            forEachDescendant(item, track);
    }
}

void CKtTreeCtrl::trackAll()
{
    ++m_live->version;
    m_live->items.clear();
    forEachDescendant(invisibleRootItem(), [this](QTreeWidgetItem* item) { m_live->items.insert(item); });
}

// --- Image list -------------------------------------------------------------

CKtImageList CKtTreeCtrl::GetImageList(unsigned int nImageList) const
{
    Q_UNUSED(nImageList);
    return m_imageList;
}

CKtImageList CKtTreeCtrl::SetImageList(const CKtImageList& list, int nImageListType)
{
    Q_UNUSED(nImageListType);
    return KtImageListOps::replace(m_imageList, list);
}

void CKtTreeCtrl::AppendItemImage(const QPixmap& image)
{
    KtImageListOps::append(m_imageList, image);
}

void CKtTreeCtrl::ClearItemImageList()
{
    KtImageListOps::clear(m_imageList);
}

// --- Insertion ----------------------------------------------------------------

QTreeWidgetItem* CKtTreeCtrl::buildItem(const QString& text, int nImage, int nSelectedImage) const
{
    auto* item = new QTreeWidgetItem(QStringList{text}, QTreeWidgetItem::Type);
    if (GetCheckBoxes()) {
        item->setFlags(item->flags() | m_checkBoxFlags);
        item->setData(0, Qt::CheckStateRole, Qt::Unchecked);
    }
    if (KtImageListOps::hasImages(m_imageList, nImage, nSelectedImage))
        item->setData(0, Qt::DecorationRole, KtImageListOps::makeIcon(m_imageList, nImage, nSelectedImage));
    item->setData(0, KtItemRole::Image, nImage);
    item->setData(0, KtItemRole::SelectedImage, nSelectedImage);
    item->setData(0, KtItemRole::CheckMirror, int(Qt::Unchecked));
    return item;
}

QTreeWidgetItem* CKtTreeCtrl::newItem(const QString& text, int nImage, int nSelectedImage)
{
    // Each item gets an icon of its own, so items with one are built in full.
    if (KtImageListOps::hasImages(m_imageList, nImage, nSelectedImage))
        return buildItem(text, nImage, nSelectedImage);

    // Items without an icon differ only in their text from the last one built
    // with the same indices and check-box settings. A copy of that item shares
    // its role values (until one of them changes) and costs one write of the
    // text instead of a write per role.
    ItemTemplate& t = m_itemTemplate;
    const bool checkBox = GetCheckBoxes() != 0;
    if (!t.item || t.image != nImage || t.selectedImage != nSelectedImage || t.checkBox != checkBox
        || (checkBox && t.checkBoxFlags != m_checkBoxFlags)) {
        t.item.reset(buildItem(text, nImage, nSelectedImage));
        t.image = nImage;
        t.selectedImage = nSelectedImage;
        t.checkBox = checkBox;
        t.checkBoxFlags = m_checkBoxFlags;
    }
    // The copy constructor takes the values, the text and the flags; the type is QTreeWidgetItem::Type.
    auto* item = new QTreeWidgetItem(*t.item);
    item->setText(0, text);
    return item;
}

QTreeWidgetItem* CKtTreeCtrl::InsertItem(const wchar_t* lpszItem, int nImage, int nSelectedImage,
    QTreeWidgetItem* hParent, QTreeWidgetItem* hInsertAfter)
{
    // Everything is set while the item is detached, so the model sees one insertion only.
    QTreeWidgetItem* item = newItem(ktutWideToQString(lpszItem), nImage, nSelectedImage);

    // A parent that is no item of this tree (a pseudo handle, a deleted item) means the top level.
    hParent = live(hParent);
    if (!hParent) {
        addTopLevelItem(item);
        return item;
    }
    // rowOf() compares pointers only, so any hInsertAfter (pseudo handles included) is safe.
    const int row = hInsertAfter ? rowOf(hParent, hInsertAfter) : -1;
    if (row >= 0 && row + 1 < hParent->childCount())
        hParent->insertChild(row + 1, item);
    else
        hParent->addChild(item);
    return item;
}

QTreeWidgetItem* CKtTreeCtrl::InsertItem(const wchar_t* lpszItem, QTreeWidgetItem* hParent)
{
    return InsertItem(lpszItem, 0, 0, hParent, nullptr);
}

QTreeWidgetItem* CKtTreeCtrl::InsertItem(tagTVINSERTSTRUCT* pInsert)
{
    if (!pInsert)
        return nullptr;
    return InsertItem(pInsert->item.pszText, pInsert->item.iImage, pInsert->item.iSelectedImage,
        pInsert->hParent, pInsert->hInsertAfter);
}

// --- Item values --------------------------------------------------------------

int CKtTreeCtrl::SetItemText(QTreeWidgetItem* hItem, const wchar_t* lpszItem)
{
    hItem = live(hItem);
    if (!hItem)
        return 0;
    hItem->setData(0, Qt::DisplayRole, ktutWideToQString(lpszItem));
    return 1;
}

KtString CKtTreeCtrl::GetItemText(QTreeWidgetItem* hItem) const
{
    hItem = live(hItem);
    if (!hItem)
        return KtString(L"");
    return ktutQStringToKtString(hItem->text(0));
}

int CKtTreeCtrl::SetItemImage(QTreeWidgetItem* hItem, int nImage, int nSelectedImage)
{
    hItem = live(hItem);
    if (!KtImageListOps::hasImages(m_imageList, nImage, nSelectedImage) || !hItem)
        return 0;
    hItem->setData(0, Qt::DecorationRole, KtImageListOps::makeIcon(m_imageList, nImage, nSelectedImage));
    hItem->setData(0, KtItemRole::Image, nImage);
    hItem->setData(0, KtItemRole::SelectedImage, nSelectedImage);
    return 1;
}

int CKtTreeCtrl::GetItemImage(QTreeWidgetItem* hItem, int& nImage, int& nSelectedImage) const
{
    hItem = live(hItem);
    nImage = -1;
    nSelectedImage = -1;
    if (!hItem)
        return 0;
    nImage = hItem->data(0, KtItemRole::Image).toInt();
    nSelectedImage = hItem->data(0, KtItemRole::SelectedImage).toInt();
    return 1;
}

int CKtTreeCtrl::SetItemData(QTreeWidgetItem* hItem, unsigned long long dwData)
{
    hItem = live(hItem);
    if (!hItem)
        return 0;
    hItem->setData(0, KtItemRole::ItemData, qulonglong(dwData));
    return 1;
}

unsigned long long CKtTreeCtrl::GetItemData(QTreeWidgetItem* hItem) const
{
    hItem = live(hItem);
    if (!hItem)
        return 0;
    return hItem->data(0, KtItemRole::ItemData).toULongLong();
}

int CKtTreeCtrl::SetItemState(QTreeWidgetItem* hItem, unsigned int nState, unsigned int nStateMask)
{
    hItem = live(hItem);
    if (!hItem)
        return 0;

    if (nStateMask == TVIS_STATEIMAGEMASK) {
        const unsigned int stateImage = nState >> 12;
        const Qt::CheckState check = stateImage == 3 ? Qt::Checked
            : stateImage == 2                        ? Qt::PartiallyChecked
                                                     : Qt::Unchecked;
        hItem->setData(0, Qt::CheckStateRole, int(check));
        hItem->setData(0, KtItemRole::CheckMirror, int(check));
        return 1;
    }

    unsigned int state = storedState(hItem);
    if (nStateMask == kAllStateBits) {
        state = nState;
    } else if (nStateMask == kPrivateCollapseMask) {
        state &= ~TVIS_EXPANDED;
    } else {
        // Masked bits are cleared only when all of them are set; callers rely on
        // the single-bit cases behaving as set/clear.
        if ((state & nStateMask) == nStateMask)
            state &= ~nStateMask;
        state |= nState;
    }

    if (signalsBlocked()) {
        hItem->setData(0, KtItemRole::State, state);
    } else {
        KtQtBlockSignalUtil blocker(this);
        hItem->setData(0, KtItemRole::State, state);
    }
    return 1;
}

unsigned int CKtTreeCtrl::GetItemState(QTreeWidgetItem* hItem, unsigned int nStateMask) const
{
    hItem = live(hItem);
    if (!hItem)
        return 0;
    if (nStateMask != TVIS_STATEIMAGEMASK)
        return storedState(hItem);

    QTreeWidgetItem* parent = hItem->parent();
    if (!parent)
        return hItem->data(0, Qt::CheckStateRole).toInt() == Qt::Checked ? 0x3000u : 0x1000u;

    // The summary covers the item and its siblings; partial checks count as unchecked.
    const int total = parent->childCount();
    int checked = 0;
    for (int i = 0; i < total; ++i) {
        if (parent->child(i)->data(0, KtItemRole::CheckMirror).toInt() == Qt::Checked)
            ++checked;
    }
    if (checked == 0)
        return 0x1000u;
    return checked == total ? 0x3000u : 0x2000u;
}

int CKtTreeCtrl::GetItemRect(QTreeWidgetItem* hItem, tagRECT* lpRect, int bTextOnly) const
{
    hItem = live(hItem);
    Q_UNUSED(bTextOnly);
    if (!lpRect)
        return 0;
    const QRect r = visualItemRect(hItem);
    lpRect->left = r.x();
    lpRect->top = r.y();
    lpRect->right = r.x() + r.width();
    lpRect->bottom = r.y() + r.height();
    return 1;
}

// --- Navigation ----------------------------------------------------------------

QTreeWidgetItem* CKtTreeCtrl::GetRootItem() const
{
    if (QTreeWidgetItem* first = topLevelItem(0))
        return first;
    return invisibleRootItem();
}

QTreeWidgetItem* CKtTreeCtrl::GetSelectedItem() const
{
    return currentItem();
}

QTreeWidgetItem* CKtTreeCtrl::GetParentItem(QTreeWidgetItem* hItem) const
{
    hItem = live(hItem);
    return hItem ? hItem->parent() : nullptr;
}

QTreeWidgetItem* CKtTreeCtrl::GetChildItem(QTreeWidgetItem* hItem) const
{
    hItem = live(hItem);
    if (!hItem)
        return found(topLevelItem(0));
    return found(hItem->child(0));
}

QTreeWidgetItem* CKtTreeCtrl::containerOf(QTreeWidgetItem* hItem) const
{
    QTreeWidgetItem* parent = hItem->parent();
    return parent ? parent : invisibleRootItem();
}

int CKtTreeCtrl::rowOf(QTreeWidgetItem* container, const QTreeWidgetItem* hItem) const
{
    // Sibling walks and "insert after the previous item" both ask for the row
    // after the one found last, so that guess goes first; then the last row and
    // the rows around the hint, before a linear search. Each child() call looks
    // up the model, so the usual case should need only one. Only pointers are
    // compared, so a stale hint or a bogus handle is harmless.
    const int count = container->childCount();
    for (int guess : {m_rowHint + 1, count - 1, m_rowHint, m_rowHint - 1}) {
        if (guess >= 0 && guess < count && container->child(guess) == hItem)
            return m_rowHint = guess;
    }
    const int row = container->indexOfChild(const_cast<QTreeWidgetItem*>(hItem));
    if (row >= 0)
        m_rowHint = row;
    return row;
}

QTreeWidgetItem* CKtTreeCtrl::siblingAt(QTreeWidgetItem* hItem, int offset) const
{
    if (!hItem)
        return nullptr;
    QTreeWidgetItem* container = containerOf(hItem);
    const int row = rowOf(container, hItem);
    if (row < 0)
        return nullptr;
    return found(container->child(row + offset));
}

QTreeWidgetItem* CKtTreeCtrl::GetNextSiblingItem(QTreeWidgetItem* hItem) const
{
    hItem = live(hItem);
    return siblingAt(hItem, 1);
}

QTreeWidgetItem* CKtTreeCtrl::GetPrevSiblingItem(QTreeWidgetItem* hItem) const
{
    hItem = live(hItem);
    return siblingAt(hItem, -1);
}

QTreeWidgetItem* CKtTreeCtrl::GetNextItem(QTreeWidgetItem* hItem, unsigned int nCode) const
{
    hItem = live(hItem);
    // Only bit 0 is tested: every odd code walks to the next sibling.
    if (!hItem || !(nCode & 1u))
        return nullptr;
    return GetNextSiblingItem(hItem);
}

QTreeWidgetItem* CKtTreeCtrl::GetFirstVisibleItem() const
{
    return itemAt(0, 0);
}

int CKtTreeCtrl::ItemHasChildren(QTreeWidgetItem* hItem) const
{
    hItem = live(hItem);
    return hItem && hItem->childCount() > 0 ? 1 : 0;
}

unsigned int CKtTreeCtrl::GetCount() const
{
    // Same count as a QTreeWidgetItemIterator over all items, without its per-item flag tests.
    unsigned int count = 0;
    std::vector<const QTreeWidgetItem*> stack{invisibleRootItem()};
    while (!stack.empty()) {
        const QTreeWidgetItem* item = stack.back();
        stack.pop_back();
        const int children = item->childCount();
        count += unsigned(children);
        for (int i = 0; i < children; ++i) {
            const QTreeWidgetItem* child = item->child(i);
            if (child->childCount() > 0)
                stack.push_back(child);
        }
    }
    return count;
}

unsigned int CKtTreeCtrl::GetVisibleCount() const
{
    // Only items under expanded, shown ancestors are laid out; their subtrees are
    // the only ones worth asking the view about (items elsewhere have no rectangle).
    unsigned int count = 0;
    std::vector<QTreeWidgetItem*> stack;
    // With a root index set, only the root item's descendants are laid out.
    QTreeWidgetItem* root = rootIndex().isValid() ? itemFromIndex(rootIndex()) : invisibleRootItem();
    for (int i = root->childCount() - 1; i >= 0; --i)
        stack.push_back(root->child(i));
    while (!stack.empty()) {
        QTreeWidgetItem* item = stack.back();
        stack.pop_back();
        if (item->isHidden())
            continue;
        const QRect r = visualItemRect(item);
        if (r.width() != 0 && r.height() != 0)
            ++count;
        if (item->isExpanded()) {
            for (int i = item->childCount() - 1; i >= 0; --i)
                stack.push_back(item->child(i));
        }
    }
    return count;
}

QTreeWidgetItem* CKtTreeCtrl::HitTest(QPoint pt, unsigned int* pFlags) const
{
    // Fixed on purpose: TVHT_NOWHERE | TVHT_ONITEMICON | TVHT_ONITEMLABEL.
    if (pFlags)
        *pFlags = TVHT_NOWHERE | TVHT_ONITEMICON | TVHT_ONITEMLABEL;
    return itemAt(pt);
}

// --- Selection, editing, expansion ---------------------------------------------------

int CKtTreeCtrl::SelectItem(QTreeWidgetItem* hItem)
{
    hItem = live(hItem);
    const QList<QTreeWidgetItem*> selected = selectedItems();
    for (QTreeWidgetItem* item : selected)
        SetItemState(item, 0, TVIS_SELECTED);
    SetItemState(hItem, TVIS_SELECTED, TVIS_SELECTED);
    setCurrentItem(hItem);
    return 1;
}

int CKtTreeCtrl::Select(QTreeWidgetItem* hItem, unsigned int nCode)
{
    hItem = live(hItem);
    if (nCode != TVGN_CARET)
        return 0;
    return SelectItem(hItem);
}

int CKtTreeCtrl::SelectDropTarget(QTreeWidgetItem* hItem)
{
    hItem = live(hItem);
    if (!hItem)
        return 0;
    hItem->setFlags(hItem->flags() | Qt::ItemIsDropEnabled);
    return 1;
}

int CKtTreeCtrl::EnsureVisible(QTreeWidgetItem* hItem)
{
    hItem = live(hItem);
    if (!hItem)
        return 0;
    scrollToItem(hItem, QAbstractItemView::EnsureVisible);
    return 1;
}

int CKtTreeCtrl::EditLabel(QTreeWidgetItem* hItem)
{
    hItem = live(hItem);
    if (!hItem)
        return 0;
    if (!(hItem->flags() & Qt::ItemIsEditable)) {
        const KtBlockThenUnblock blocker(this);
        hItem->setFlags(hItem->flags() | Qt::ItemIsEditable);
    }
    editItem(hItem, 0);
    return 1;
}

int CKtTreeCtrl::Expand(QTreeWidgetItem* hItem, unsigned int nCode)
{
    hItem = live(hItem);
    if (!hItem)
        return 0;
    // TVE_TOGGLE has bit 1 set and therefore always expands.
    if (!(nCode & TVE_EXPAND) && (nCode & TVE_COLLAPSE)) {
        hItem->setExpanded(false);
        SetItemState(hItem, kPrivateCollapseMask, kPrivateCollapseMask);
    } else {
        hItem->setExpanded(true);
        SetItemState(hItem, TVIS_EXPANDED, TVIS_EXPANDED);
    }
    return 1;
}

int CKtTreeCtrl::ExpandAllChild(QTreeWidgetItem* hItem, unsigned int nCode)
{
    hItem = live(hItem);
    if (!hItem)
        return 0;
    if (hItem->childCount() == 0)
        return 1;
    Expand(hItem, nCode);
    forEachDescendant(hItem, [this, nCode](QTreeWidgetItem* item) {
        if (item->childCount() > 0)
            Expand(item, nCode);
    });
    return 1;
}

void CKtTreeCtrl::markDescendantsExpanded(bool expanded)
{
    // Starts below GetRootItem(): the first top-level item and the other top-level
    // subtrees keep their stored bits. Written without a signal blocker.
    forEachDescendant(GetRootItem(), [expanded](QTreeWidgetItem* item) {
        const unsigned int state = storedState(item);
        item->setData(0, KtItemRole::State, expanded ? state | TVIS_EXPANDED : state & ~TVIS_EXPANDED);
    });
}

void CKtTreeCtrl::ExpandAll()
{
    expandAll();
    markDescendantsExpanded(true);
}

void CKtTreeCtrl::CollapseAll()
{
    collapseAll();
    markDescendantsExpanded(false);
}

// --- Check boxes ----------------------------------------------------------------

void CKtTreeCtrl::SetCheckBoxes(int bCheck, QFlags<Qt::ItemFlag> flags)
{
    m_checkBoxes = bCheck;
    m_checkBoxFlags = flags;
}

int CKtTreeCtrl::GetCheckBoxes() const
{
    return m_checkBoxes;
}

int CKtTreeCtrl::SetCheck(QTreeWidgetItem* hItem, int fCheck)
{
    hItem = live(hItem);
    if (!hItem)
        return 0;
    const int state = fCheck ? Qt::Checked : Qt::Unchecked;
    hItem->setData(0, Qt::CheckStateRole, state);
    hItem->setData(0, KtItemRole::CheckMirror, state);
    return 1;
}

int CKtTreeCtrl::GetCheck(QTreeWidgetItem* hItem) const
{
    hItem = live(hItem);
    return hItem && hItem->data(0, KtItemRole::CheckMirror).toInt() == Qt::Checked ? 1 : 0;
}

// --- Deletion and drag image ----------------------------------------------------------

int CKtTreeCtrl::DeleteItem(QTreeWidgetItem* hItem)
{
    hItem = live(hItem);
    const KtBlockThenUnblock blocker(this);
    if (hItem) {
        setItemWidget(hItem, 0, nullptr);
        SetItemState(hItem, 0, TVIS_SELECTED);
        delete hItem;
    }
    return 1;
}

int CKtTreeCtrl::DeleteAllItems()
{
    clear();
    return 1;
}

QPixmap CKtTreeCtrl::CreateDragImage(QTreeWidgetItem* hItem)
{
    hItem = live(hItem);
    QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen)
        return QPixmap();
    const QRect r = visualItemRect(hItem);
    // The corners are mapped with the control's own mapping, as callers expect.
    const QPoint topLeft = mapToGlobal(r.topLeft());
    const QPoint bottomRight = mapToGlobal(r.bottomRight());
    return screen->grabWindow(winId(), topLeft.x(), topLeft.y(), bottomRight.x() - topLeft.x() + 1,
        bottomRight.y() - topLeft.y() + 1);
}
