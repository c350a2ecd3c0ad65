#include "gallerywindow.h"

#include "treecontrolpage.h"

#include <QPixmap>
#include <QTabWidget>

GalleryWindow::GalleryWindow(QWidget* parent)
    : QMainWindow(parent)
    , m_tabs(new QTabWidget(this))
{
    setWindowTitle(tr("KtCmdQtUtils gallery"));
    m_tabs->addTab(new TreeControlPage(m_tabs), tr("Tree control"));
    setCentralWidget(m_tabs);
    resize(720, 480);
}

bool GalleryWindow::saveScreenshot(const QString& path)
{
    return grab().save(path, "PNG");
}
