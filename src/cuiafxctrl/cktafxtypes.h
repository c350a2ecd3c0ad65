#pragma once

#include "ktcmdqtutils_export.h"

#include <QPoint>

class QTreeWidgetItem;

/**
 * @file
 * Constants and structures of the foundation-class control API, with their
 * published values. Each control honours only the codes its documentation
 * lists and ignores the others.
 */

/// The foundation-class unsigned integer; signals keep this name in their signatures.
typedef unsigned int UINT;

// Tree item state bits (stored in the item's state role).
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

// Tree navigation codes (GetNextItem, Select).
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

// Tree expansion codes.
constexpr unsigned int TVE_COLLAPSE = 0x0001;
constexpr unsigned int TVE_EXPAND = 0x0002;
constexpr unsigned int TVE_TOGGLE = 0x0003;
constexpr unsigned int TVE_EXPANDPARTIAL = 0x4000;
constexpr unsigned int TVE_COLLAPSERESET = 0x8000;

// Tree hit-test flags.
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

// Tree pseudo handles. The tree control does not give them their classic
// meaning: as an insert-after handle one is like any item that is not a child
// of the parent (the new item goes last); as a parent it stands for the top level.
#define TVI_ROOT (reinterpret_cast<QTreeWidgetItem*>(static_cast<quintptr>(-0x10000)))
#define TVI_FIRST (reinterpret_cast<QTreeWidgetItem*>(static_cast<quintptr>(-0x0FFFF)))
#define TVI_LAST (reinterpret_cast<QTreeWidgetItem*>(static_cast<quintptr>(-0x0FFFE)))
#define TVI_SORT (reinterpret_cast<QTreeWidgetItem*>(static_cast<quintptr>(-0x0FFFD)))

// Tree item masks (TVITEM::mask; not interpreted by the tree control).
constexpr unsigned int TVIF_TEXT = 0x0001;
constexpr unsigned int TVIF_IMAGE = 0x0002;
constexpr unsigned int TVIF_PARAM = 0x0004;
constexpr unsigned int TVIF_STATE = 0x0008;
constexpr unsigned int TVIF_HANDLE = 0x0010;
constexpr unsigned int TVIF_SELECTEDIMAGE = 0x0020;
constexpr unsigned int TVIF_CHILDREN = 0x0040;

// List item states and search flags.
constexpr unsigned int LVIS_FOCUSED = 0x0001;
constexpr unsigned int LVIS_SELECTED = 0x0002;
constexpr unsigned int LVIS_CUT = 0x0004;
constexpr unsigned int LVIS_DROPHILITED = 0x0008;
constexpr unsigned int LVIS_STATEIMAGEMASK = 0xF000;
constexpr unsigned int LVNI_ALL = 0x0000;
constexpr unsigned int LVNI_FOCUSED = 0x0001;
constexpr unsigned int LVNI_SELECTED = 0x0002;

// List item masks.
constexpr unsigned int LVIF_TEXT = 0x0001;
constexpr unsigned int LVIF_IMAGE = 0x0002;
constexpr unsigned int LVIF_PARAM = 0x0004;
constexpr unsigned int LVIF_STATE = 0x0008;

// List column formats.
constexpr int LVCFMT_LEFT = 0x0000;
constexpr int LVCFMT_RIGHT = 0x0001;
constexpr int LVCFMT_CENTER = 0x0002;

// List extended styles.
constexpr unsigned int LVS_EX_GRIDLINES = 0x0001;
constexpr unsigned int LVS_EX_CHECKBOXES = 0x0004;
constexpr unsigned int LVS_EX_FULLROWSELECT = 0x0020;

// Menu flags.
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

// Popup menu tracking flags.
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

// Control bar docking styles.
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

// Combo box error result.
constexpr int CB_ERR = -1;

/// Rectangle with exclusive right and bottom edges.
struct tagRECT
{
    int left;
    int top;
    int right;
    int bottom;
};
using RECT = tagRECT;

struct tagPOINT
{
    int x;
    int y;
};
using POINT = tagPOINT;

/// A point of the foundation-class API, convertible to and from QPoint.
class CPoint : public tagPOINT
{
public:
    CPoint() noexcept
        : tagPOINT{0, 0}
    { }
    CPoint(int initX, int initY) noexcept
        : tagPOINT{initX, initY}
    { }
    CPoint(const tagPOINT& pt) noexcept
        : tagPOINT(pt)
    { }
    CPoint(const QPoint& pt) noexcept
        : tagPOINT{pt.x(), pt.y()}
    { }
    operator QPoint() const noexcept { return QPoint(x, y); }
    bool operator==(const tagPOINT& other) const noexcept { return x == other.x && y == other.y; }
    bool operator!=(const tagPOINT& other) const noexcept { return !(*this == other); }
};

/// Tree item description; the tree control reads only pszText, iImage and iSelectedImage.
struct tagTVITEM
{
    unsigned int mask;
    QTreeWidgetItem* hItem;
    unsigned int state;
    unsigned int stateMask;
    wchar_t* pszText;
    int cchTextMax;
    int iImage;
    int iSelectedImage;
    int cChildren;
    long long lParam;
};
using TVITEM = tagTVITEM;
using TVITEMW = tagTVITEM;

/// Tree insertion description.
struct tagTVINSERTSTRUCT
{
    QTreeWidgetItem* hParent;
    QTreeWidgetItem* hInsertAfter;
    tagTVITEM item;
};
using TVINSERTSTRUCT = tagTVINSERTSTRUCT;
using TVINSERTSTRUCTW = tagTVINSERTSTRUCT;

/// List item description.
struct tagLVITEMW
{
    unsigned int mask;
    int iItem;
    int iSubItem;
    unsigned int state;
    unsigned int stateMask;
    wchar_t* pszText;
    int cchTextMax;
    int iImage;
    long long lParam;
    int iIndent;
    int iGroupId;
    unsigned int cColumns;
    unsigned int* puColumns;
    int* piColFmt;
    int iGroup;
};
using LVITEMW = tagLVITEMW;
using LVITEM = tagLVITEMW;

/// Opaque position of a list iteration (a 1-based index carried as a pointer).
struct __POSITION
{
};
using POSITION = __POSITION*;
