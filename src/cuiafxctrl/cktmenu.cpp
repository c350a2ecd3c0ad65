#include "cktmenu.h"

#include "ktorphanaction_p.h"
#include "ktstringconversion.h"

#include <QList>
#include <QSet>
#include <QVariant>

#include <climits>
#include <vector>

namespace {

// Separators get a fixed thin height; the blanks and tabs are part of the
// published text and are kept byte for byte.
constexpr char kSeparatorStyle[] = " \t\t  QMenu::separator { \t\t  height: 2px; \t\t  } ";
static_assert(sizeof(kSeparatorStyle) - 1 == 47, "the separator style sheet has 47 characters");

constexpr unsigned int kNoPosition = UINT_MAX; // a position of -1 seen as unsigned

// True when @p target is @p from or one of the sub-menus below it. Attaching
// such a menu would make the menus contain each other.
bool reaches(QMenu* from, const QMenu* target)
{
    QSet<QMenu*> seen;
    std::vector<QMenu*> pending{from};
    while (!pending.empty()) {
        QMenu* menu = pending.back();
        pending.pop_back();
        if (menu == target)
            return true;
        if (seen.contains(menu))
            continue;
        seen.insert(menu);
        const QList<QAction*> list = menu->actions();
        for (QAction* action : list) {
            if (action && action->menu())
                pending.push_back(action->menu());
        }
    }
    return false;
}

} // namespace

CKtMenu::CKtMenu(QWidget* pParent)
    : QMenu(pParent)
    , m_pCommandMap(std::make_unique<std::unordered_map<unsigned int, QPointer<QObject>>>())
{
    // commandId() is declared with the UINT name; registering it lets queued
    // connections and QSignalSpy resolve the parameter type.
    static const int uintType = qRegisterMetaType<UINT>("UINT");
    Q_UNUSED(uintType);
    AttachDefault(pParent);
}

CKtMenu::CKtMenu()
    : CKtMenu(nullptr)
{ }

CKtMenu::~CKtMenu() = default;

int CKtMenu::AttachDefault(QWidget* pWnd)
{
    Q_UNUSED(pWnd);
    setStyleSheet(QString::fromLatin1(kSeparatorStyle));
    return 1;
}

int CKtMenu::CreatePopupMenu()
{
    // Virtual dispatch gives an override its say, and the base version sets
    // the style sheet itself, so no separate "not overridden" path is needed.
    AttachDefault(nullptr);
    return 1;
}

// --- Registry ------------------------------------------------------------------

void CKtMenu::registerItem(QObject* item, QAction* carrier, unsigned long long nID)
{
    carrier->setProperty(ItemIdProperty, QVariant::fromValue(static_cast<qlonglong>(nID)));
    (*m_pCommandMap)[static_cast<unsigned int>(nID)] = item;
}

QAction* CKtMenu::registeredAction(unsigned int nID) const
{
    const auto it = m_pCommandMap->find(nID);
    return it == m_pCommandMap->end() ? nullptr : qobject_cast<QAction*>(it->second.data());
}

QAction* CKtMenu::actionAt(unsigned int nPosition) const
{
    const QList<QAction*> list = actions();
    return nPosition < static_cast<unsigned int>(list.size()) ? list.at(static_cast<int>(nPosition))
                                                              : nullptr;
}

int CKtMenu::positionOf(unsigned int nID)
{
    QAction* action = registeredAction(nID);
    return action ? actions().indexOf(action) : -1;
}

// --- Adding ----------------------------------------------------------------------

QAction* CKtMenu::addAction(const QString& text)
{
    return QMenu::addAction(text);
}

QAction* CKtMenu::addAction(const QIcon& icon, const QString& text)
{
    return QMenu::addAction(icon, text);
}

QAction* CKtMenu::addAction(const QIcon& icon, const QString& text, long long nID)
{
    QAction* action = QMenu::addAction(icon, text);
    registerItem(action, action, static_cast<unsigned long long>(nID));
    return action;
}

QAction* CKtMenu::addMenu(QMenu* menu)
{
    return QMenu::addMenu(menu);
}

QMenu* CKtMenu::addMenu(const QString& title)
{
    return QMenu::addMenu(title);
}

QMenu* CKtMenu::addMenu(const QIcon& icon, const QString& title)
{
    return QMenu::addMenu(icon, title);
}

QMenu* CKtMenu::addMenu(const QIcon& icon, const QString& title, long long nID)
{
    QMenu* menu = QMenu::addMenu(icon, title);
    registerItem(menu, menu->menuAction(), static_cast<unsigned long long>(nID));
    return menu;
}

int CKtMenu::AppendMenu(
    unsigned int nFlags, unsigned long nIDNewItem, const wchar_t* lpszNewItem, const QIcon& icon)
{
    const QString text = ktutWideToQString(lpszNewItem);
    if (nFlags & MF_POPUP) {
        // The identifier is the item's command, not a menu handle as in the classic API.
        QAction* carrier = QMenu::addMenu(icon, text)->menuAction();
        registerItem(carrier, carrier, nIDNewItem);
    } else if (nFlags & MF_SEPARATOR) {
        addSeparator();
    } else {
        QAction* action = QMenu::addAction(icon, text);
        registerItem(action, action, nIDNewItem);
    }
    return 1;
}

int CKtMenu::AppendMenu(unsigned int nFlags, unsigned long nIDNewItem, const wchar_t* lpszNewItem)
{
    return AppendMenu(nFlags, nIDNewItem, lpszNewItem, QIcon());
}

int CKtMenu::attachSubMenu(CKtMenu* pSubMenu, const KtString& strTitle, unsigned long nID,
    unsigned long nBeforeID, bool insert, const QIcon& icon)
{
    if (!pSubMenu || strTitle.isEmpty() || checkExit(pSubMenu))
        return 0;
    if (reaches(pSubMenu, this))
        return 0;
    pSubMenu->setTitle(ktutKtStringToQString(strTitle));
    pSubMenu->setIcon(icon);
    QAction* before = insert ? registeredAction(static_cast<unsigned int>(nBeforeID)) : nullptr;
    if (before)
        QMenu::insertMenu(before, pSubMenu);
    else
        QMenu::addMenu(pSubMenu);
    QAction* carrier = pSubMenu->menuAction();
    registerItem(carrier, carrier, nID);
    return 1;
}

int CKtMenu::AppendMenu(CKtMenu* pSubMenu, KtString& strTitle, unsigned long nID, const QIcon& icon)
{
    return attachSubMenu(pSubMenu, strTitle, nID, 0, false, icon);
}

int CKtMenu::AppendMenu(CKtMenu* pSubMenu, KtString& strTitle, unsigned long nID)
{
    return attachSubMenu(pSubMenu, strTitle, nID, 0, false, QIcon());
}

int CKtMenu::InsertMenu(
    CKtMenu* pSubMenu, KtString& strTitle, unsigned long nID, unsigned long nBeforeID, const QIcon& icon)
{
    return attachSubMenu(pSubMenu, strTitle, nID, nBeforeID, true, icon);
}

int CKtMenu::InsertMenu(CKtMenu* pSubMenu, KtString& strTitle, unsigned long nID, unsigned long nBeforeID)
{
    return attachSubMenu(pSubMenu, strTitle, nID, nBeforeID, true, QIcon());
}

int CKtMenu::InsertMenu(
    unsigned int nPosition, unsigned int nFlags, unsigned long nIDNewItem, const wchar_t* lpszNewItem)
{
    if (!(nFlags & MF_BYPOSITION))
        return 0;
    QAction* before = actionAt(nPosition);
    if (!before) {
        AppendMenu(nFlags, nIDNewItem, lpszNewItem, QIcon());
        return 1;
    }
    if (nFlags & MF_SEPARATOR) {
        insertSeparator(before);
        return 1;
    }
    QAction* action = ktDeleteWithOwner(this, new QAction(ktutWideToQString(lpszNewItem)));
    insertAction(before, action);
    registerItem(action, action, nIDNewItem);
    return 1;
}

int CKtMenu::InsertMenu(
    unsigned int nPosition, unsigned int nFlags, unsigned long nIDNewItem, const QPixmap& pixmap)
{
    if (!(nFlags & MF_BYPOSITION))
        return 0;
    QAction* before = actionAt(nPosition);
    if (!before)
        return 0;
    if (nFlags & MF_SEPARATOR) {
        insertSeparator(before);
        return 1;
    }
    QIcon icon;
    icon.addPixmap(pixmap, QIcon::Normal, QIcon::Off);
    icon.addPixmap(pixmap, QIcon::Selected, QIcon::Off);
    QAction* action = ktDeleteWithOwner(this, new QAction);
    action->setIcon(icon);
    insertAction(before, action);
    registerItem(action, action, nIDNewItem);
    return 1;
}

// --- Removing ----------------------------------------------------------------------

int CKtMenu::RemoveMenu(unsigned int nPosition, unsigned int nFlags)
{
    if (!(nFlags & MF_BYPOSITION))
        return 0;
    QAction* action = actionAt(nPosition);
    if (!action)
        return 0;
    removeAction(action);
    return 1;
}

int CKtMenu::DeleteMenu(unsigned long nPosition, unsigned int nFlags)
{
    if (nFlags & MF_BYPOSITION) {
        // A position beyond the unsigned range must not wrap onto a real item.
        if (nPosition <= UINT_MAX)
            RemoveMenu(static_cast<unsigned int>(nPosition), MF_BYPOSITION);
        return 0;
    }
    const int position = GetMenuItemPos(nPosition);
    return position < 0 ? 0 : RemoveMenu(static_cast<unsigned int>(position), MF_BYPOSITION);
}

// --- Queries -------------------------------------------------------------------------

int CKtMenu::GetMenuItemPos(unsigned long nID)
{
    return positionOf(static_cast<unsigned int>(nID));
}

int CKtMenu::GetMenuString(unsigned int nIDItem, KtString& rString, unsigned int nFlags) const
{
    Q_UNUSED(nFlags);
    const QAction* action = registeredAction(nIDItem);
    if (!action)
        return 0;
    rString = ktutQStringToKtString(action->text());
    return rString.length();
}

QMenu* CKtMenu::GetSubMenu(unsigned long nID)
{
    QObject* item = (*m_pCommandMap)[static_cast<unsigned int>(nID)];
    if (auto* action = qobject_cast<QAction*>(item))
        return action->menu();
    return qobject_cast<QMenu*>(item); // registered by addMenu(): the sub-menu itself
}

// --- Check marks and enabling ------------------------------------------------------

int CKtMenu::CheckMenuItem(unsigned int nIDCheckItem, unsigned int nCheck)
{
    unsigned int position = nIDCheckItem;
    if (!(nCheck & MF_BYPOSITION)) {
        const int found = positionOf(nIDCheckItem);
        if (found < 0)
            return 0;
        position = static_cast<unsigned int>(found);
    }
    QAction* action = actionAt(position);
    if (!action)
        return 0;
    const int wasChecked = action->isChecked() ? 1 : 0;
    action->setCheckable(true);
    action->setChecked((nCheck & MF_CHECKED) != 0);
    return wasChecked;
}

int CKtMenu::CheckMenuRadioItem(
    unsigned int nIDFirst, unsigned int nIDLast, unsigned int nIDItem, unsigned int nFlags)
{
    unsigned int first = nIDFirst, last = nIDLast, item = nIDItem;
    if (!(nFlags & MF_BYPOSITION)) {
        first = static_cast<unsigned int>(positionOf(nIDFirst));
        last = static_cast<unsigned int>(positionOf(nIDLast));
        item = static_cast<unsigned int>(positionOf(nIDItem));
    }
    if (first == kNoPosition || last == kNoPosition || item == kNoPosition)
        return 0;
    const QList<QAction*> list = actions();
    // The range stops before the last item: callers rely on it keeping its state.
    for (unsigned int i = first; i < last && i < static_cast<unsigned int>(list.size()); ++i) {
        QAction* action = list.at(static_cast<int>(i));
        action->setCheckable(true);
        action->setChecked(i == item);
    }
    return 1;
}

int CKtMenu::EnableMenuItem(unsigned int nIDEnableItem, unsigned int nEnable)
{
    QAction* action = nullptr;
    if (nEnable & MF_BYPOSITION) {
        action = actionAt(nIDEnableItem);
    } else {
        if (nEnable == 0 || m_pCommandMap->count(nIDEnableItem) == 0)
            return -1;
        action = registeredAction(nIDEnableItem);
    }
    if (!action)
        return -1;
    const int previous = action->isEnabled() ? int(MF_ENABLED) : int(MF_GRAYED | MF_DISABLED);
    action->setEnabled((nEnable & (MF_GRAYED | MF_DISABLED)) == 0);
    return previous;
}

// --- Pop-up ------------------------------------------------------------------------------

int CKtMenu::TrackPopupMenu(unsigned int nFlags, int x, int y, QWidget* pWnd, tagRECT* lpRect)
{
    Q_UNUSED(nFlags);
    Q_UNUSED(pWnd);
    Q_UNUSED(lpRect);
    // The offset keeps the first item from sitting right under the pointer.
    QAction* chosen = exec(QPoint(x + 2, y + 2));
    if (!chosen)
        return 0;
    const QVariant id = chosen->property(ItemIdProperty);
    if (!id.isValid())
        return 0;
    emit commandId(static_cast<UINT>(id.toULongLong()));
    return 1;
}

int CKtMenu::checkExit(QMenu* pMenu)
{
    // Only the first sub-menu is looked at. When it is not @p pMenu the guard
    // asks again with that sub-menu, which then matches itself, so any
    // sub-menu at all answers 1.
    Q_UNUSED(pMenu);
    const QList<QAction*> list = actions();
    for (const QAction* action : list) {
        if (action && action->menu())
            return 1;
    }
    return 0;
}
