#pragma once

#include "cktafxtypes.h"
#include "ktcmdqtutils_export.h"

#include <QAction>
#include <QIcon>
#include <QList>
#include <QSize>
#include <QString>
#include <QToolBar>

/**
 * @brief A QToolBar with the foundation-class toolbar API.
 *
 * A button is a QAction of the toolbar and the action itself is its
 * identifier; there are no numeric command identifiers. Button indices count
 * only the non-separator actions unless a method says otherwise. Bitmaps are
 * drawn with light grey, RGB (192, 192, 192), as the transparent colour.
 *
 * Some behaviours differ from the classic toolbar on purpose and are kept:
 * AddButton() with an action adds a new button instead of that action,
 * LoadIcon() returns the file's icon without the transparency mask,
 * CommandToIndex() answers the button count for an unknown action, and
 * SetButtonText() writes the icon text.
 *
 * @see @ref controls
 */
class KTCMDQTUTILS_EXPORT CKtToolBar : public QToolBar
{
    Q_OBJECT

public:
    /// Icon-only buttons, icon size 16 x 15 and the toolbar's fixed style sheet.
    explicit CKtToolBar(QWidget* pParent = nullptr);
    ~CKtToolBar() override;

    /// @name Forwards
    /// @{

    /// The toolbar itself.
    CKtToolBar* GetToolBarCtrl() const;
    /// Sets the icon size to @p sizeImage; @p sizeButton is ignored.
    void SetSizes(QSize sizeButton, QSize sizeImage);
    /// Fixes the toolbar's height at @p cyHeight pixels.
    void SetHeight(int cyHeight);
    /// The Qt tool button style (icon only by default).
    Qt::ToolButtonStyle GetButtonStyle() const;
    /// Sets the Qt tool button style.
    void SetButtonStyle(Qt::ToolButtonStyle style);
    using QWidget::setGeometry;
    /// QWidget::setGeometry(@p rect).
    void setGeometry(const QRect& rect);
    /// Appends a separator; the argument is ignored. Returns 1.
    int AddSeparator(QAction* pAction = nullptr);
    /// Takes @p pAction off the toolbar without deleting it. Returns 1.
    int DeleteButton(QAction* pAction);
    /// Checks the button when @p nCheck is 1 and unchecks it otherwise; 0 for a null action.
    int CheckButton(QAction* pAction, int nCheck);
    /// Enables the button when @p nEnable is 1 and disables it otherwise; 0 for a null action.
    int EnableButton(QAction* pAction, int nEnable);
    /// @}

    /// @name Buttons
    /// @{
    /**
     * 0 for a null icon. With a non-null @p pAction a new button showing @p icon
     * is added (not @p pAction) and 1 is returned; with a null @p pAction a
     * parentless button is added and 0 is returned.
     */
    int AddButton(const QIcon& icon, QAction* pAction);
    /// AddButton(LoadIcon(@p strImagePath), @p pAction).
    int AddButton(QString strImagePath, QAction* pAction);
    /// The same with a wide path, taken as UTF-32.
    int AddButton(const wchar_t* lpszImagePath, QAction* pAction);
    /// The icon of the image file @p strPath, light grey left as it is in the file.
    QIcon LoadIcon(QString strPath);
    /// Adds @p actions (checkable first when @p bCheckable is non-zero); 0 for an empty list.
    int LoadToolBar(QList<QAction*> actions, int bCheckable);
    /// Adds a checkable button per image file that loads; 0 for an empty list.
    int LoadToolBar(QList<QString> imagePaths);
    /**
     * Cuts the bitmap strip at @p lpszBitmapPath into slices of about the icon
     * width and gives slice i, light grey made transparent, to visible button i.
     * Returns 0 when there are no buttons or the strip is narrower than one icon.
     */
    int LoadBitmap(const wchar_t* lpszBitmapPath);
    /// @}

    /// @name Queries by index
    /// @{

    /// The non-separator actions in order.
    QList<QAction*> GetListActions() const;
    /// Number of buttons (separators not counted).
    int GetButtonCount() const;
    /// Index of @p pAction among the buttons: -1 without buttons, the button count when not found.
    int CommandToIndex(QAction* pAction) const;
    /// The action at @p nIndex of all actions, separators included; null when out of range.
    QAction* GetItemID(int nIndex) const;
    /**
     * Writes the geometry of the action at @p nIndex of all actions with
     * inclusive right and bottom edges. Out of range nothing is written.
     */
    void GetItemRect(int nIndex, tagRECT* lpRect) const;
    /// The text() of button @p nIndex; empty when out of range.
    QString GetButtonText(int nIndex) const;
    /// Writes GetButtonText(@p nIndex) to @p rString.
    void GetButtonText(int nIndex, QString& rString) const;
    /// Sets the iconText() (not the text()) of button @p nIndex; 0 when out of range.
    int SetButtonText(int nIndex, const wchar_t* lpszText);
    /// @}

    /// @name Layout
    /// @{
    /**
     * For icon-only toolbars with actions: fixes the height at the icon height + 8
     * and, when @p bSetWidth is non-zero, the width at the sum of the action widths
     * (icon width + 7, separators 7) + 1.
     */
    void UpdateToolBarSize(int bSetWidth);
    /**
     * Places the toolbar along an edge of its parent for CBRS_LEFT, CBRS_TOP,
     * CBRS_RIGHT or CBRS_BOTTOM, icon size + 8 pixels thick. Other codes and
     * toolbars without a parent are left alone.
     */
    void DockBar(int nDockBarID);
    /// @}
};
