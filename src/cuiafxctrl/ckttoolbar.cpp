#include "ckttoolbar.h"

#include "ktorphanaction_p.h"
#include "ktstringconversion.h"

#include <QBitmap>
#include <QColor>
#include <QPixmap>
#include <QRect>

#include <algorithm>

namespace {

constexpr char kToolBarStyle[] = "QToolBar {border:none;}\t\t  "
                                 "QToolBar QToolButton:hover{background-color:#a4d4ff;}\t\t  "
                                 "QToolBar QToolButton:selected{background-color:#a4d4ff;}\t\t  "
                                 "QToolBar QToolButton:checked{background-color:#a4d4ff;}\t\t  "
                                 "QToolBar QToolButton:pressed{background-color:#a4d4ff;}      "
                                 "QToolBar::separator{width:1px;height:23px;background:rgb(54,59,66);}";
static_assert(sizeof(kToolBarStyle) - 1 == 332, "the toolbar style sheet has 332 characters");

constexpr int kDefaultIconWidth = 16;
constexpr int kDefaultIconHeight = 15;
constexpr int kButtonMargin = 7; // a button is its icon plus this; a separator is this alone
const QColor kTransparentColor(192, 192, 192);

void maskLightGrey(QPixmap& pixmap)
{
    if (!pixmap.isNull())
        pixmap.setMask(pixmap.createMaskFromColor(kTransparentColor, Qt::MaskInColor));
}

} // namespace

CKtToolBar::CKtToolBar(QWidget* pParent)
    : QToolBar(pParent)
{
    setToolButtonStyle(Qt::ToolButtonIconOnly);
    setIconSize(QSize(kDefaultIconWidth, kDefaultIconHeight));
    setStyleSheet(QString::fromLatin1(kToolBarStyle));
}

CKtToolBar::~CKtToolBar() = default;

// --- Forwards ------------------------------------------------------------------

CKtToolBar* CKtToolBar::GetToolBarCtrl() const
{
    return const_cast<CKtToolBar*>(this);
}

void CKtToolBar::SetSizes(QSize sizeButton, QSize sizeImage)
{
    Q_UNUSED(sizeButton);
    setIconSize(sizeImage);
}

void CKtToolBar::SetHeight(int cyHeight)
{
    setFixedHeight(cyHeight);
}

Qt::ToolButtonStyle CKtToolBar::GetButtonStyle() const
{
    return toolButtonStyle();
}

void CKtToolBar::SetButtonStyle(Qt::ToolButtonStyle style)
{
    setToolButtonStyle(style);
}

void CKtToolBar::setGeometry(const QRect& rect)
{
    QWidget::setGeometry(rect);
}

int CKtToolBar::AddSeparator(QAction* pAction)
{
    Q_UNUSED(pAction);
    addSeparator();
    return 1;
}

int CKtToolBar::DeleteButton(QAction* pAction)
{
    removeAction(pAction);
    return 1;
}

int CKtToolBar::CheckButton(QAction* pAction, int nCheck)
{
    if (!pAction)
        return 0;
    pAction->setChecked(nCheck == 1);
    return 1;
}

int CKtToolBar::EnableButton(QAction* pAction, int nEnable)
{
    if (!pAction)
        return 0;
    pAction->setEnabled(nEnable == 1);
    return 1;
}

// --- Buttons -----------------------------------------------------------------------

int CKtToolBar::AddButton(const QIcon& icon, QAction* pAction)
{
    if (icon.isNull())
        return 0;
    if (pAction) {
        // The caller's action stays off the toolbar; it finds the new button
        // through GetListActions().
        addAction(icon, QString());
        return 1;
    }
    auto* button = new QAction(icon, QString(), nullptr);
    ktDeleteWithOwner(this, button);
    addAction(button);
    return 0;
}

int CKtToolBar::AddButton(QString strImagePath, QAction* pAction)
{
    return AddButton(LoadIcon(strImagePath), pAction);
}

int CKtToolBar::AddButton(const wchar_t* lpszImagePath, QAction* pAction)
{
    return AddButton(ktutUcs4ToQString(lpszImagePath), pAction);
}

QIcon CKtToolBar::LoadIcon(QString strPath)
{
    QPixmap pixmap(strPath);
    // QIcon(path) is not null even for a file that cannot be read, and callers
    // test the icon to drop such files.
    if (pixmap.isNull())
        return QIcon();
    // The masked pixmap is not what is returned: callers expect image files to
    // keep their light grey, so the icon is built from the file once more.
    maskLightGrey(pixmap);
    return QIcon(strPath);
}

int CKtToolBar::LoadToolBar(QList<QAction*> actions, int bCheckable)
{
    if (actions.isEmpty())
        return 0;
    actions.removeAll(nullptr);
    if (bCheckable) {
        for (QAction* action : qAsConst(actions)) {
            if (!action->isSeparator())
                action->setCheckable(true);
        }
    }
    addActions(actions);
    return 1;
}

int CKtToolBar::LoadToolBar(QList<QString> imagePaths)
{
    if (imagePaths.isEmpty())
        return 0;
    QList<QAction*> collected;
    for (const QString& path : qAsConst(imagePaths)) {
        const QIcon icon = LoadIcon(path);
        if (icon.isNull())
            continue;
        auto* button = new QAction(nullptr);
        button->setIcon(icon);
        ktDeleteWithOwner(this, button);
        collected.append(button);
    }
    LoadToolBar(collected, 1);
    return 1;
}

int CKtToolBar::LoadBitmap(const wchar_t* lpszBitmapPath)
{
    const QList<QAction*> buttons = GetListActions();
    if (buttons.isEmpty())
        return 0;
    const QPixmap strip(ktutUcs4ToQString(lpszBitmapPath));
    const int iconWidth = iconSize().width();
    if (iconWidth <= 0)
        return 0;
    const int sliceCount = strip.width() / iconWidth;
    if (sliceCount < 1)
        return 0;

    // The strip is shared out evenly, so a strip a little wider than
    // sliceCount icons gives each button a slice a little wider than an icon.
    const int height = strip.height();
    const int sliceWidth = strip.width() / sliceCount;
    const int count = std::min(sliceCount, int(buttons.size()));
    for (int i = 0; i < count; ++i) {
        const int left = i * sliceWidth;
        QPixmap slice = strip.copy(QRect(QPoint(left, 0), QPoint(left + sliceWidth - 1, height - 1)));
        maskLightGrey(slice);
        QAction* button = buttons.at(i);
        // A hidden button still takes its slice, so later buttons keep their places in the strip.
        if (!slice.isNull() && button && !button->isSeparator() && button->isVisible())
            button->setIcon(QIcon(slice));
    }
    return 1;
}

// --- Queries by index -----------------------------------------------------------------

QList<QAction*> CKtToolBar::GetListActions() const
{
    QList<QAction*> buttons;
    const QList<QAction*> all = actions();
    for (QAction* action : all) {
        if (action && !action->isSeparator())
            buttons.append(action);
    }
    return buttons;
}

int CKtToolBar::GetButtonCount() const
{
    return GetListActions().size();
}

int CKtToolBar::CommandToIndex(QAction* pAction) const
{
    const QList<QAction*> buttons = GetListActions();
    if (buttons.isEmpty())
        return -1;
    // Not found gives one past the last index; callers compare with GetButtonCount().
    const int index = buttons.indexOf(pAction);
    return index < 0 ? buttons.size() : index;
}

QAction* CKtToolBar::GetItemID(int nIndex) const
{
    const QList<QAction*> all = actions();
    return nIndex >= 0 && nIndex < all.size() ? all.at(nIndex) : nullptr;
}

void CKtToolBar::GetItemRect(int nIndex, tagRECT* lpRect) const
{
    QAction* action = GetItemID(nIndex);
    if (!action || !lpRect)
        return;
    const QRect r = actionGeometry(action);
    *lpRect = tagRECT{r.left(), r.top(), r.right(), r.bottom()};
}

QString CKtToolBar::GetButtonText(int nIndex) const
{
    const QList<QAction*> buttons = GetListActions();
    return nIndex >= 0 && nIndex < buttons.size() ? buttons.at(nIndex)->text() : QString();
}

void CKtToolBar::GetButtonText(int nIndex, QString& rString) const
{
    rString = GetButtonText(nIndex);
}

int CKtToolBar::SetButtonText(int nIndex, const wchar_t* lpszText)
{
    const QList<QAction*> buttons = GetListActions();
    if (nIndex < 0 || nIndex >= buttons.size())
        return 0;
    buttons.at(nIndex)->setIconText(ktutUcs4ToQString(lpszText));
    return 1;
}

// --- Layout ----------------------------------------------------------------------------

void CKtToolBar::UpdateToolBarSize(int bSetWidth)
{
    const QList<QAction*> all = actions();
    if (toolButtonStyle() != Qt::ToolButtonIconOnly || all.isEmpty())
        return;
    const QSize icon = iconSize();
    int width = 0;
    for (const QAction* action : all)
        width += action && action->isSeparator() ? kButtonMargin : icon.width() + kButtonMargin;
    setFixedHeight(icon.height() + kButtonMargin + 1);
    if (bSetWidth)
        setFixedWidth(width + 1);
}

void CKtToolBar::DockBar(int nDockBarID)
{
    const QWidget* parent = parentWidget();
    if (!parent)
        return;
    const QSize icon = iconSize();
    const int right = parent->width() - 1;
    const int bottom = parent->height() - 1;
    const int across = icon.width() + kButtonMargin; // thickness of a vertical bar, minus 1
    const int down = icon.height() + kButtonMargin; // thickness of a horizontal bar, minus 1

    switch (static_cast<unsigned int>(nDockBarID)) {
    case CBRS_LEFT:
        setOrientation(Qt::Vertical);
        setGeometry(QRect(QPoint(0, 0), QPoint(across, bottom)));
        break;
    case CBRS_TOP:
        setOrientation(Qt::Horizontal);
        setGeometry(QRect(QPoint(0, 0), QPoint(right, down)));
        break;
    case CBRS_RIGHT:
        setOrientation(Qt::Vertical);
        setGeometry(QRect(QPoint(right - across, 0), QPoint(right, bottom)));
        break;
    case CBRS_BOTTOM:
        setOrientation(Qt::Horizontal);
        setGeometry(QRect(QPoint(0, bottom - down), QPoint(right, bottom)));
        break;
    default:
        break;
    }
}
