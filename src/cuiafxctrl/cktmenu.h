#pragma once

#include "cktafxtypes.h"
#include "ktcmdqtutils_export.h"

#include <KtString>
#include <QIcon>
#include <QMenu>
#include <QPixmap>
#include <QPointer>

#include <memory>
#include <unordered_map>

/**
 * @brief A QMenu with the foundation-class menu API.
 *
 * Items are the menu's QActions, identified by command identifiers. The
 * identifier of an item is kept in the dynamic property "MenuItemIdx" of its
 * action and in the menu's command-id registry, which the by-command
 * operations search. Results are BOOL-style: 1 for success, 0 (or -1 where
 * noted) for failure.
 *
 * Some behaviours differ from the classic menu on purpose and are kept:
 * TrackPopupMenu() reports the chosen command only through commandId(), the
 * CheckMenuRadioItem() range excludes its last item, DeleteMenu() by position
 * returns 0, and the sub-menu forms of AppendMenu() and InsertMenu() accept
 * only one sub-menu per menu.
 *
 * @see @ref controls
 */
class KTCMDQTUTILS_EXPORT CKtMenu : public QMenu
{
    Q_OBJECT

public:
    /// Name of the dynamic action property that holds an item's command identifier.
    static constexpr const char* ItemIdProperty = "MenuItemIdx";

    /// Builds an empty menu with @p pParent as Qt parent and the separator style sheet.
    explicit CKtMenu(QWidget* pParent);
    /// CKtMenu(nullptr): a menu without a Qt parent.
    CKtMenu();
    ~CKtMenu() override;

    /// Sets the separator style sheet; @p pWnd is not used. Returns 1.
    virtual int AttachDefault(QWidget* pWnd);
    /// The menu itself is the pop-up: calls AttachDefault(nullptr) and returns 1.
    int CreatePopupMenu();

    /// @name Qt-style adding
    /// @{
    using QWidget::addAction;
    /// QMenu::addAction(); the action gets no command identifier.
    QAction* addAction(const QString& text);
    /// QMenu::addAction(); the action gets no command identifier.
    QAction* addAction(const QIcon& icon, const QString& text);
    /// Adds an action and registers it under @p nID.
    QAction* addAction(const QIcon& icon, const QString& text, long long nID);
    /// QMenu::addMenu(); the menu is not registered.
    QAction* addMenu(QMenu* menu);
    /// QMenu::addMenu(); the menu is not registered.
    QMenu* addMenu(const QString& title);
    /// QMenu::addMenu(); the menu is not registered.
    QMenu* addMenu(const QIcon& icon, const QString& title);
    /**
     * Adds a sub-menu; its menuAction() carries @p nID, and the registry holds
     * the sub-menu itself, so only GetSubMenu() finds it by identifier.
     */
    QMenu* addMenu(const QIcon& icon, const QString& title, long long nID);
    /// @}

    /// @name Foundation-class adding
    /// @{
    /**
     * Appends an item: MF_POPUP creates an empty sub-menu registered under
     * @p nIDNewItem, MF_SEPARATOR a separator, anything else an action. Check,
     * gray and bitmap flags are ignored. Returns 1.
     */
    int AppendMenu(
        unsigned int nFlags, unsigned long nIDNewItem, const wchar_t* lpszNewItem, const QIcon& icon);
    /// The same without an icon.
    int AppendMenu(unsigned int nFlags, unsigned long nIDNewItem = 0, const wchar_t* lpszNewItem = nullptr);
    /**
     * Appends @p pSubMenu titled @p strTitle under @p nID. Returns 0 for a null
     * sub-menu, an empty title, or when this menu already holds a sub-menu (see checkExit()).
     */
    int AppendMenu(CKtMenu* pSubMenu, KtString& strTitle, unsigned long nID, const QIcon& icon);
    /// The same without an icon.
    int AppendMenu(CKtMenu* pSubMenu, KtString& strTitle, unsigned long nID);
    /**
     * Like the sub-menu AppendMenu(), but placed before the action registered
     * under @p nBeforeID when there is one, else at the end.
     */
    int InsertMenu(
        CKtMenu* pSubMenu, KtString& strTitle, unsigned long nID, unsigned long nBeforeID, const QIcon& icon);
    /// The same without an icon.
    int InsertMenu(CKtMenu* pSubMenu, KtString& strTitle, unsigned long nID, unsigned long nBeforeID);
    /**
     * Inserts a text item or separator before position @p nPosition (MF_BYPOSITION
     * required, else 0). Past the end it falls back to AppendMenu(), which honours
     * MF_POPUP; before an existing item MF_POPUP is not honoured.
     */
    int InsertMenu(unsigned int nPosition, unsigned int nFlags, unsigned long nIDNewItem,
        const wchar_t* lpszNewItem = nullptr);
    /**
     * Inserts a text-less item showing @p pixmap (normal and selected modes) before
     * position @p nPosition. Returns 0 without MF_BYPOSITION or past the end (no fall-back).
     */
    int InsertMenu(
        unsigned int nPosition, unsigned int nFlags, unsigned long nIDNewItem, const QPixmap& pixmap);
    /// @}

    /// @name Removing
    /// @{
    /**
     * Takes the action at @p nPosition out of the menu without deleting it;
     * MF_BYPOSITION is required. The registry keeps its entry.
     */
    int RemoveMenu(unsigned int nPosition, unsigned int nFlags);
    /// By position: removes the item and returns 0 regardless. By command: RemoveMenu()'s result, 0 if
    /// unknown.
    int DeleteMenu(unsigned long nPosition, unsigned int nFlags);
    /// @}

    /// @name Queries
    /// @{

    /// Index in actions() (separators count) of the action registered under @p nID, or -1.
    int GetMenuItemPos(unsigned long nID);
    /// Copies the text of the action registered under @p nIDItem; returns its length, 0 when there is none.
    int GetMenuString(unsigned int nIDItem, KtString& rString, unsigned int nFlags) const;
    /**
     * The sub-menu registered under the command identifier @p nID (not a position),
     * or null. An unknown identifier is entered in the registry as a null entry.
     */
    QMenu* GetSubMenu(unsigned long nID);
    /// @}

    /// @name Check marks and enabling
    /// @{

    /// Checks (MF_CHECKED) or unchecks the item; returns its previous checked state as 1 or 0.
    int CheckMenuItem(unsigned int nIDCheckItem, unsigned int nCheck);
    /**
     * Checks @p nIDItem and unchecks the others from @p nIDFirst up to but not
     * including @p nIDLast. Returns 0 when one of the three items is not found.
     */
    int CheckMenuRadioItem(
        unsigned int nIDFirst, unsigned int nIDLast, unsigned int nIDItem, unsigned int nFlags);
    /**
     * Enables the item unless MF_GRAYED or MF_DISABLED is set. Returns the previous
     * state, 0 (enabled) or 3 (disabled), or -1 when no item is found; by command a
     * zero @p nEnable also gives -1.
     */
    int EnableMenuItem(unsigned int nIDEnableItem, unsigned int nEnable);
    /// @}

    /**
     * Runs the menu modally at (@p x + 2, @p y + 2). When the user chooses an item
     * with a command identifier, emits commandId() and returns 1; otherwise 0.
     * @p nFlags, @p pWnd and @p lpRect are ignored; the command is never the result.
     */
    int TrackPopupMenu(unsigned int nFlags, int x, int y, QWidget* pWnd, tagRECT* lpRect = nullptr);

    /**
     * 1 when this menu already holds a sub-menu, whichever it is; 0 otherwise.
     * Guards the sub-menu forms of AppendMenu() and InsertMenu().
     */
    int checkExit(QMenu* pMenu);

Q_SIGNALS:
    /// The command chosen in TrackPopupMenu().
    void commandId(UINT nID);

private:
    void registerItem(QObject* item, QAction* carrier, unsigned long long nID);
    QAction* registeredAction(unsigned int nID) const;
    QAction* actionAt(unsigned int nPosition) const;
    int positionOf(unsigned int nID);
    int attachSubMenu(CKtMenu* pSubMenu, const KtString& strTitle, unsigned long nID, unsigned long nBeforeID,
        bool insert, const QIcon& icon);

    // Values are guarded: a deleted action or menu reads back as null, not as a dangling pointer.
    std::unique_ptr<std::unordered_map<unsigned int, QPointer<QObject>>> m_pCommandMap;
};
