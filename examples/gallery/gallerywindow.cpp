#include "gallerywindow.h"

#include "blockspage.h"
#include "editcontrolspage.h"
#include "listcontrolpage.h"
#include "menutoolbarpage.h"
#include "pdfpreviewpage.h"
#include "plotstylepage.h"
#include "treecontrolpage.h"

#include <QPixmap>
#include <QTabWidget>
#include <QVariant>

GalleryWindow::GalleryWindow(QWidget* parent)
    : QMainWindow(parent)
    , m_tabs(new QTabWidget(this))
{
    setWindowTitle(tr("KtCmdQtUtils gallery"));
    addPage(QStringLiteral("tree"), new TreeControlPage(m_tabs), tr("Tree control"));
    addPage(QStringLiteral("list"), new ListControlPage(m_tabs), tr("List control"));
    addPage(QStringLiteral("combo"), new EditControlsPage(m_tabs), tr("Combo and edits"));
    addPage(QStringLiteral("menu"), new MenuToolBarPage(m_tabs), tr("Menu and toolbar"));
    addPage(QStringLiteral("plotstyle"), new PlotStylePage(m_tabs), tr("Plot style"));
    addPage(QStringLiteral("pdf"), new PdfPreviewPage(m_tabs), tr("PDF preview"));
    addPage(QStringLiteral("blocks"), new BlocksPage(m_tabs), tr("Blocks"));
    setCentralWidget(m_tabs);
    resize(720, 480);
}

void GalleryWindow::addPage(const QString& name, QWidget* page, const QString& title)
{
    m_names.append(name);
    m_tabs->addTab(page, title);
}

QStringList GalleryWindow::pageNames() const
{
    return m_names;
}

bool GalleryWindow::showPage(const QString& name)
{
    const int index = m_names.indexOf(name);
    if (index < 0)
        return false;
    m_tabs->setCurrentIndex(index);
    return true;
}

bool GalleryWindow::isCurrentPageBusy() const
{
    const QWidget* page = m_tabs->currentWidget();
    return page && page->property("galleryBusy").toBool();
}

bool GalleryWindow::saveScreenshot(const QString& path)
{
    return grab().save(path, "PNG");
}
