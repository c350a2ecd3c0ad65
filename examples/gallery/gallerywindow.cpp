#include "gallerywindow.h"

#include "editcontrolspage.h"
#include "listcontrolpage.h"
#include "menutoolbarpage.h"
#include "treecontrolpage.h"

#include <QPixmap>
#include <QTabWidget>

GalleryWindow::GalleryWindow(QWidget* parent)
    : QMainWindow(parent)
    , m_tabs(new QTabWidget(this))
{
    setWindowTitle(tr("KtCmdQtUtils gallery"));
    m_tabs->addTab(new TreeControlPage(m_tabs), tr("Tree control"));
    m_tabs->addTab(new ListControlPage(m_tabs), tr("List control"));
    m_tabs->addTab(new EditControlsPage(m_tabs), tr("Combo and edits"));
    m_tabs->addTab(new MenuToolBarPage(m_tabs), tr("Menu and toolbar"));
    setCentralWidget(m_tabs);
    resize(720, 480);
}

bool GalleryWindow::saveScreenshot(const QString& path)
{
    return grab().save(path, "PNG");
}
