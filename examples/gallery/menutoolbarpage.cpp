#include "menutoolbarpage.h"

#include <CKtMenu>
#include <CKtToolBar>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <ktstringconversion.h>

#include <string>

namespace {

constexpr int kIconWidth = 16;
constexpr int kIconHeight = 15;

// Command identifiers of the menu.
enum Command : unsigned int {
    CmdLine = 101,
    CmdCircle = 102,
    CmdPaste = 103,
    CmdMove = 201,
    CmdCopy = 202,
    CmdRotate = 203,
    CmdOrtho = 301,
    CmdSnap1 = 401,
    CmdSnap5 = 402,
    CmdSnap10 = 403,
};

// One picture per tool, side by side on the light grey that the toolbar makes transparent.
QImage drawStrip(int count)
{
    QImage strip(count * kIconWidth, kIconHeight, QImage::Format_RGB32);
    strip.fill(QColor(192, 192, 192));
    QPainter p(&strip);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(20, 70, 160), 1.6));
    for (int i = 0; i < count; ++i) {
        const QRectF cell(i * kIconWidth + 2.5, 2.5, kIconWidth - 5, kIconHeight - 5);
        switch (i) {
        case 0: // line
            p.drawLine(cell.bottomLeft(), cell.topRight());
            break;
        case 1: // circle
            p.drawEllipse(cell);
            break;
        case 2: // arc
            p.drawArc(cell, 0, 180 * 16);
            break;
        case 3: // rectangle
            p.drawRect(cell.adjusted(0, 1, 0, -1));
            break;
        case 4: // text
            p.drawText(cell, Qt::AlignCenter, QStringLiteral("A"));
            break;
        default: // hatch
            for (qreal x = cell.left(); x < cell.right(); x += 3)
                p.drawLine(QPointF(x, cell.bottom()), QPointF(x + 3, cell.top()));
            break;
        }
    }
    return strip;
}

} // namespace

MenuToolBarPage::MenuToolBarPage(QWidget* parent)
    : QWidget(parent)
    , m_toolBar(new CKtToolBar(this))
    , m_menu(new CKtMenu(this))
    , m_menuButton(new QPushButton(tr("Drawing commands…"), this))
    , m_status(new QLabel(tr("Choose a command from the menu or the toolbar."), this))
{
    auto* row = new QHBoxLayout;
    row->addWidget(m_menuButton);
    row->addStretch();

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_toolBar);
    layout->addLayout(row);
    layout->addWidget(m_status);
    layout->addStretch();

    buildToolBar();
    buildMenu();
    connect(m_menuButton, &QPushButton::clicked, this, &MenuToolBarPage::openMenu);
    connect(m_menu, &CKtMenu::commandId, this, &MenuToolBarPage::commandChosen);
}

void MenuToolBarPage::buildToolBar()
{
    const QStringList tools{tr("Line"), tr("Circle"), tr("Arc"), tr("Rectangle"), tr("Text"), tr("Hatch")};
    QList<QAction*> actions;
    for (const QString& tool : tools) {
        auto* action = new QAction(tool, m_toolBar);
        action->setToolTip(tool);
        actions << action;
    }
    m_toolBar->LoadToolBar(actions.mid(0, 4), 1);
    m_toolBar->AddSeparator();
    m_toolBar->LoadToolBar(actions.mid(4), 1);

    // The buttons take their pictures from one strip, as classic toolbar resources do.
    const QString path = m_stripDir.filePath(QStringLiteral("drawtools.bmp"));
    if (m_stripDir.isValid() && drawStrip(tools.size()).save(path, "BMP"))
        m_toolBar->LoadBitmap(path.toStdWString().c_str());
    // Height only: the fixed width leaves no room for the style's button spacing.
    m_toolBar->UpdateToolBarSize(0);

    for (QAction* action : actions) {
        connect(action, &QAction::triggered, this, [this, action](bool checked) {
            m_status->setText(tr("Toolbar button %1 \"%2\" %3")
                                  .arg(m_toolBar->CommandToIndex(action))
                                  .arg(action->text(), checked ? tr("checked") : tr("unchecked")));
        });
    }
}

void MenuToolBarPage::buildMenu()
{
    m_menu->AppendMenu(MF_STRING, CmdLine, L"&Line");
    m_menu->AppendMenu(MF_STRING, CmdCircle, L"&Circle");
    m_menu->AppendMenu(MF_STRING, CmdPaste, L"&Paste");
    m_menu->EnableMenuItem(CmdPaste, MF_BYCOMMAND | MF_GRAYED);
    m_menu->AppendMenu(MF_SEPARATOR);

    auto* modify = new CKtMenu(m_menu);
    modify->AppendMenu(MF_STRING, CmdMove, L"&Move");
    modify->AppendMenu(MF_STRING, CmdCopy, L"C&opy");
    modify->AppendMenu(MF_STRING, CmdRotate, L"&Rotate");
    KtString title(L"&Modify");
    m_menu->AppendMenu(modify, title, 200);
    m_menu->AppendMenu(MF_SEPARATOR);

    m_menu->AppendMenu(MF_STRING, CmdOrtho, L"&Ortho");
    m_menu->AppendMenu(MF_SEPARATOR);
    m_menu->AppendMenu(MF_STRING, CmdSnap1, L"Snap 1 mm");
    m_menu->AppendMenu(MF_STRING, CmdSnap5, L"Snap 5 mm");
    m_menu->AppendMenu(MF_STRING, CmdSnap10, L"Snap 10 mm");
    m_menu->AppendMenu(MF_SEPARATOR);
    m_menu->CheckMenuItem(CmdSnap5, MF_BYCOMMAND | MF_CHECKED);
}

void MenuToolBarPage::openMenu()
{
    const QPoint at = m_menuButton->mapToGlobal(QPoint(0, m_menuButton->height()));
    m_menu->TrackPopupMenu(TPM_LEFTALIGN | TPM_RIGHTBUTTON, at.x(), at.y(), this);
}

void MenuToolBarPage::commandChosen(unsigned int id)
{
    // Choices in the sub-menu are signalled by the menu that was tracked, but
    // their texts are registered with the sub-menu.
    auto* modify = qobject_cast<CKtMenu*>(m_menu->GetSubMenu(200));
    KtString text;
    if (!m_menu->GetMenuString(id, text, MF_BYCOMMAND) && modify)
        modify->GetMenuString(id, text, MF_BYCOMMAND);
    const QString name = ktutKtStringToQString(text).remove(QLatin1Char('&'));

    if (id == CmdOrtho) {
        // CheckMenuItem() answers the previous state, which makes a toggle.
        if (m_menu->CheckMenuItem(CmdOrtho, MF_BYCOMMAND | MF_CHECKED))
            m_menu->CheckMenuItem(CmdOrtho, MF_BYCOMMAND | MF_UNCHECKED);
    } else if (id >= CmdSnap1 && id <= CmdSnap10) {
        // The radio range stops before its last position, so it ends on the separator after the group.
        const int first = m_menu->GetMenuItemPos(CmdSnap1);
        const int last = m_menu->GetMenuItemPos(CmdSnap10) + 1;
        m_menu->CheckMenuRadioItem(first, last, m_menu->GetMenuItemPos(id), MF_BYPOSITION);
    }
    m_status->setText(tr("Command id: %1 %2").arg(id).arg(name));
}
