#pragma once

#include "ktcmdqtutils_export.h"

#include <QPoint>

class QTreeWidgetItem;

/**
 * @file
 * Constants and structures of the foundation-class control API, with their
 * published values. Each control honours only the codes its documentation
 * lists and ignores the others; each table below says which ones are read.
 * @see @ref controls
 */

/// The foundation-class unsigned integer; signals keep this name in their signatures.
typedef unsigned int UINT;

/// @name Tree item states
/// @{

/**
 * Tree item state bits, stored per item under KtItemRole::State. CKtTreeCtrl
 * keeps TVIS_SELECTED and TVIS_EXPANDED up to date and reads
 * TVIS_STATEIMAGEMASK as the check state; the other bits are only stored.
 */
constexpr unsigned int TVIS_SELECTED = 0x0002;
constexpr unsigned int TVIS_CUT = 0x0004;
constexpr unsigned int TVIS_DROPHILITED = 0x0008;
constexpr unsigned int TVIS_BOLD = 0x0010;
constexpr unsigned int TVIS_EXPANDED = 0x0020;
constexpr unsigned int TVIS_EXPANDEDONCE = 0x0040;
constexpr unsigned int TVIS_EXPANDPARTIAL = 0x0080;
constexpr unsigned int TVIS_OVERLAYMASK = 0x0F00;
constexpr unsigned int TVIS_STATEIMAGEMASK = 0xF000;
constexpr unsigned int TVIS_USERMASK = 0xF000;
/// @}

/// @name Tree navigation codes
/// @{

/**
 * Tree navigation codes of CKtTreeCtrl::GetNextItem() and CKtTreeCtrl::Select().
 * GetNextItem() only tests bit 0 (set: the next sibling); Select() honours
 * TVGN_CARET alone.
 */
constexpr unsigned int TVGN_ROOT = 0x0000;
constexpr unsigned int TVGN_NEXT = 0x0001;
constexpr unsigned int TVGN_PREVIOUS = 0x0002;
constexpr unsigned int TVGN_PARENT = 0x0003;
constexpr unsigned int TVGN_CHILD = 0x0004;
constexpr unsigned int TVGN_FIRSTVISIBLE = 0x0005;
constexpr unsigned int TVGN_NEXTVISIBLE = 0x0006;
constexpr unsigned int TVGN_PREVIOUSVISIBLE = 0x0007;
constexpr unsigned int TVGN_DROPHILITE = 0x0008;
constexpr unsigned int TVGN_CARET = 0x0009;
constexpr unsigned int TVGN_LASTVISIBLE = 0x000A;
/// @}

/// @name Tree expansion codes
/// @{

/**
 * Tree expansion codes of CKtTreeCtrl::Expand(): a code with TVE_COLLAPSE and
 * without TVE_EXPAND collapses; every other code, TVE_TOGGLE included, expands.
 */
constexpr unsigned int TVE_COLLAPSE = 0x0001;
constexpr unsigned int TVE_EXPAND = 0x0002;
constexpr unsigned int TVE_TOGGLE = 0x0003;
constexpr unsigned int TVE_EXPANDPARTIAL = 0x4000;
constexpr unsigned int TVE_COLLAPSERESET = 0x8000;
/// @}

/// @name Tree hit-test flags
/// @{

/**
 * Tree hit-test flags. CKtTreeCtrl::HitTest() always reports
 * TVHT_NOWHERE | TVHT_ONITEMICON | TVHT_ONITEMLABEL (7), wherever the point is.
 */
constexpr unsigned int TVHT_NOWHERE = 0x0001;
constexpr unsigned int TVHT_ONITEMICON = 0x0002;
constexpr unsigned int TVHT_ONITEMLABEL = 0x0004;
constexpr unsigned int TVHT_ONITEMINDENT = 0x0008;
constexpr unsigned int TVHT_ONITEMBUTTON = 0x0010;
constexpr unsigned int TVHT_ONITEMRIGHT = 0x0020;
constexpr unsigned int TVHT_ONITEMSTATEICON = 0x0040;
constexpr unsigned int TVHT_ONITEM = TVHT_ONITEMICON | TVHT_ONITEMLABEL | TVHT_ONITEMSTATEICON;
constexpr unsigned int TVHT_ABOVE = 0x0100;
constexpr unsigned int TVHT_BELOW = 0x0200;
constexpr unsigned int TVHT_TORIGHT = 0x0400;
constexpr unsigned int TVHT_TOLEFT = 0x0800;
/// @}

/// @name Tree pseudo handles
/// @{

/**
 * Tree pseudo handles. CKtTreeCtrl does not give them their classic meaning:
 * like any handle that is not an item of the tree they count as a null item.
 * As an insert-after handle one is like any item that is not a child of the
 * parent (the new item goes last); as a parent it stands for the top level.
 */
#define TVI_ROOT (reinterpret_cast<QTreeWidgetItem*>(static_cast<quintptr>(-0x10000)))
#define TVI_FIRST (reinterpret_cast<QTreeWidgetItem*>(static_cast<quintptr>(-0x0FFFF)))
#define TVI_LAST (reinterpret_cast<QTreeWidgetItem*>(static_cast<quintptr>(-0x0FFFE)))
#define TVI_SORT (reinterpret_cast<QTreeWidgetItem*>(static_cast<quintptr>(-0x0FFFD)))
/// @}

/// @name Tree item masks
/// @{

/// Bits of tagTVITEM::mask. CKtTreeCtrl does not read them.
constexpr unsigned int TVIF_TEXT = 0x0001;
constexpr unsigned int TVIF_IMAGE = 0x0002;
constexpr unsigned int TVIF_PARAM = 0x0004;
constexpr unsigned int TVIF_STATE = 0x0008;
constexpr unsigned int TVIF_HANDLE = 0x0010;
constexpr unsigned int TVIF_SELECTEDIMAGE = 0x0020;
constexpr unsigned int TVIF_CHILDREN = 0x0040;
/// @}

/// @name List item states and search flags
/// @{

/**
 * List item states (LVIS_) and search flags (LVNI_). CKtListCtrl knows only
 * LVIS_SELECTED as a state (GetItemState(), SetItemState()) and only
 * LVNI_SELECTED as a flag of GetNextItem(); the others are ignored.
 */
constexpr unsigned int LVIS_FOCUSED = 0x0001;
constexpr unsigned int LVIS_SELECTED = 0x0002;
constexpr unsigned int LVIS_CUT = 0x0004;
constexpr unsigned int LVIS_DROPHILITED = 0x0008;
constexpr unsigned int LVIS_STATEIMAGEMASK = 0xF000;
constexpr unsigned int LVNI_ALL = 0x0000;
constexpr unsigned int LVNI_FOCUSED = 0x0001;
constexpr unsigned int LVNI_SELECTED = 0x0002;
/// @}

/// @name List item masks
/// @{

/**
 * Bits of tagLVITEMW::mask. CKtListCtrl::InsertItem(tagLVITEMW*) tests only
 * LVIF_PARAM; text and image are taken whatever the mask says.
 */
constexpr unsigned int LVIF_TEXT = 0x0001;
constexpr unsigned int LVIF_IMAGE = 0x0002;
constexpr unsigned int LVIF_PARAM = 0x0004;
constexpr unsigned int LVIF_STATE = 0x0008;
/// @}

/// @name List column formats
/// @{

/// Heading alignments of CKtListCtrl::InsertColumn(); any other value aligns left.
constexpr int LVCFMT_LEFT = 0x0000;
constexpr int LVCFMT_RIGHT = 0x0001;
constexpr int LVCFMT_CENTER = 0x0002;
/// @}

/// @name List extended styles
/// @{

/**
 * Extended styles of CKtListCtrl::SetExtendedStyle(). Only LVS_EX_CHECKBOXES
 * has an effect: rows inserted afterwards get a check box.
 */
constexpr unsigned int LVS_EX_GRIDLINES = 0x0001;
constexpr unsigned int LVS_EX_CHECKBOXES = 0x0004;
constexpr unsigned int LVS_EX_FULLROWSELECT = 0x0020;
/// @}

/// @name Menu flags
/// @{

/**
 * Menu item flags of CKtMenu. Read are MF_POPUP and MF_SEPARATOR (kind of a
 * new item), MF_BYPOSITION (a position rather than a command identifier, the
 * MF_BYCOMMAND default), MF_CHECKED, and MF_GRAYED or MF_DISABLED (disabled).
 * The others are accepted and ignored.
 */
constexpr unsigned int MF_INSERT = 0x0000;
constexpr unsigned int MF_STRING = 0x0000;
constexpr unsigned int MF_ENABLED = 0x0000;
constexpr unsigned int MF_UNCHECKED = 0x0000;
constexpr unsigned int MF_BYCOMMAND = 0x0000;
constexpr unsigned int MF_GRAYED = 0x0001;
constexpr unsigned int MF_DISABLED = 0x0002;
constexpr unsigned int MF_BITMAP = 0x0004;
constexpr unsigned int MF_CHECKED = 0x0008;
constexpr unsigned int MF_POPUP = 0x0010;
constexpr unsigned int MF_MENUBARBREAK = 0x0020;
constexpr unsigned int MF_MENUBREAK = 0x0040;
constexpr unsigned int MF_HILITE = 0x0080;
constexpr unsigned int MF_OWNERDRAW = 0x0100;
constexpr unsigned int MF_BYPOSITION = 0x0400;
constexpr unsigned int MF_SEPARATOR = 0x0800;
constexpr unsigned int MF_DEFAULT = 0x1000;
/// @}

/// @name Popup menu tracking flags
/// @{

/// Flags of CKtMenu::TrackPopupMenu(), which ignores them all.
constexpr unsigned int TPM_LEFTBUTTON = 0x0000;
constexpr unsigned int TPM_LEFTALIGN = 0x0000;
constexpr unsigned int TPM_TOPALIGN = 0x0000;
constexpr unsigned int TPM_RIGHTBUTTON = 0x0002;
constexpr unsigned int TPM_CENTERALIGN = 0x0004;
constexpr unsigned int TPM_RIGHTALIGN = 0x0008;
constexpr unsigned int TPM_VCENTERALIGN = 0x0010;
constexpr unsigned int TPM_BOTTOMALIGN = 0x0020;
constexpr unsigned int TPM_NONOTIFY = 0x0080;
constexpr unsigned int TPM_RETURNCMD = 0x0100;
/// @}

/// @name Control bar docking styles
/// @{

/**
 * Docking styles. CKtToolBar::DockBar() honours the four combined edges
 * CBRS_LEFT, CBRS_TOP, CBRS_RIGHT and CBRS_BOTTOM; any other value leaves the
 * toolbar where it is.
 */
constexpr unsigned int CBRS_ALIGN_LEFT = 0x1000;
constexpr unsigned int CBRS_ALIGN_TOP = 0x2000;
constexpr unsigned int CBRS_ALIGN_RIGHT = 0x4000;
constexpr unsigned int CBRS_ALIGN_BOTTOM = 0x8000;
constexpr unsigned int CBRS_ALIGN_ANY = 0xF000;
constexpr unsigned int CBRS_BORDER_LEFT = 0x0100;
constexpr unsigned int CBRS_BORDER_TOP = 0x0200;
constexpr unsigned int CBRS_BORDER_RIGHT = 0x0400;
constexpr unsigned int CBRS_BORDER_BOTTOM = 0x0800;
constexpr unsigned int CBRS_LEFT = CBRS_ALIGN_LEFT | CBRS_BORDER_RIGHT;
constexpr unsigned int CBRS_TOP = CBRS_ALIGN_TOP | CBRS_BORDER_BOTTOM;
constexpr unsigned int CBRS_RIGHT = CBRS_ALIGN_RIGHT | CBRS_BORDER_LEFT;
constexpr unsigned int CBRS_BOTTOM = CBRS_ALIGN_BOTTOM | CBRS_BORDER_TOP;
/// @}

/// Result of a CKtComboBox call that failed or found nothing (-1).
constexpr int CB_ERR = -1;

/**
 * A rectangle by its edges. The tree and list controls write exclusive right
 * and bottom edges; CKtToolBar::GetItemRect() writes inclusive ones.
 */
struct tagRECT
{
    int left; ///< x of the left edge
    int top; ///< y of the top edge
    int right; ///< x of the right edge
    int bottom; ///< y of the bottom edge
};
/// The foundation-class name of tagRECT.
using RECT = tagRECT;

/// A point of the foundation-class API; CPoint adds the conversions.
struct tagPOINT
{
    int x; ///< horizontal coordinate
    int y; ///< vertical coordinate
};
/// The foundation-class name of tagPOINT.
using POINT = tagPOINT;

/// A point of the foundation-class API, convertible to and from QPoint.
class CPoint : public tagPOINT
{
public:
    /// The point (0, 0).
    CPoint() noexcept
        : tagPOINT{0, 0}
    { }
    /// The point (@p initX, @p initY).
    CPoint(int initX, int initY) noexcept
        : tagPOINT{initX, initY}
    { }
    /// A copy of @p pt.
    CPoint(const tagPOINT& pt) noexcept
        : tagPOINT(pt)
    { }
    /// The point of @p pt.
    CPoint(const QPoint& pt) noexcept
        : tagPOINT{pt.x(), pt.y()}
    { }
    /// The same point as a QPoint.
    operator QPoint() const noexcept { return QPoint(x, y); }
    /// True when both coordinates are equal.
    bool operator==(const tagPOINT& other) const noexcept { return x == other.x && y == other.y; }
    /// True when a coordinate differs.
    bool operator!=(const tagPOINT& other) const noexcept { return !(*this == other); }
};

/// Tree item description; the tree control reads only pszText, iImage and iSelectedImage.
struct tagTVITEM
{
    unsigned int mask; ///< TVIF_ bits naming the valid fields; not read
    QTreeWidgetItem* hItem; ///< the item described; not read
    unsigned int state; ///< TVIS_ state bits; not read
    unsigned int stateMask; ///< the bits of @c state that count; not read
    wchar_t* pszText; ///< the item's text, NUL-terminated
    int cchTextMax; ///< size of the @c pszText buffer; not read
    int iImage; ///< image index for the normal icon
    int iSelectedImage; ///< image index for the selected icon
    int cChildren; ///< whether the item has children; not read
    long long lParam; ///< item data; not read
};
/// The foundation-class name of tagTVITEM.
using TVITEM = tagTVITEM;
/// The wide-character name of tagTVITEM (the only form).
using TVITEMW = tagTVITEM;

/// Tree insertion description, for CKtTreeCtrl::InsertItem(tagTVINSERTSTRUCT*).
struct tagTVINSERTSTRUCT
{
    QTreeWidgetItem* hParent; ///< the parent; null for the top level
    QTreeWidgetItem* hInsertAfter; ///< the sibling to insert after; any other handle appends
    tagTVITEM item; ///< text and images of the new item
};
/// The foundation-class name of tagTVINSERTSTRUCT.
using TVINSERTSTRUCT = tagTVINSERTSTRUCT;
/// The wide-character name of tagTVINSERTSTRUCT (the only form).
using TVINSERTSTRUCTW = tagTVINSERTSTRUCT;

/**
 * List item description, for CKtListCtrl::InsertItem(tagLVITEMW*), which reads
 * only mask (for LVIF_PARAM), iItem, iSubItem, pszText, iImage and lParam.
 */
struct tagLVITEMW
{
    unsigned int mask; ///< LVIF_ bits; only LVIF_PARAM is tested
    int iItem; ///< the row
    int iSubItem; ///< the column
    unsigned int state; ///< LVIS_ state bits; not read
    unsigned int stateMask; ///< the bits of @c state that count; not read
    wchar_t* pszText; ///< the cell's text, NUL-terminated
    int cchTextMax; ///< size of the @c pszText buffer; not read
    int iImage; ///< image index of the cell's icon; none when out of range
    long long lParam; ///< item data, taken when @c mask holds LVIF_PARAM
    int iIndent; ///< indentation; not read
    int iGroupId; ///< group identifier; not read
    unsigned int cColumns; ///< number of tile columns; not read
    unsigned int* puColumns; ///< tile columns; not read
    int* piColFmt; ///< tile column formats; not read
    int iGroup; ///< group index; not read
};
/// The wide-character name of tagLVITEMW.
using LVITEMW = tagLVITEMW;
/// The foundation-class name of tagLVITEMW (the only form).
using LVITEM = tagLVITEMW;

/// What a POSITION points to: a type without members, never created.
struct __POSITION
{
};
/**
 * Opaque position of a selection walk of CKtListCtrl: a 1-based index carried
 * as a pointer. Null means the walk is over.
 */
using POSITION = __POSITION*;
