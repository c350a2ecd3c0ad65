#include "gallerywindow.h"

#include "blockspage.h"
#include "designerdialogpage.h"
#include "editcontrolspage.h"
#include "listcontrolpage.h"
#include "menutoolbarpage.h"
#include "pdfpreviewpage.h"
#include "plotstylepage.h"
#include "treecontrolpage.h"

#include <QActionGroup>
#include <QMenuBar>
#include <QPixmap>
#include <QTabWidget>
#include <QVariant>

GalleryWindow::GalleryWindow(QWidget* parent)
    : QMainWindow(parent)
    , m_tabs(new QTabWidget(this))
    , m_languages(new QActionGroup(this))
{
    setWindowTitle(tr("KtCmdQtUtils gallery"));
    QMenu* menu = menuBar()->addMenu(tr("&Language"));
    const QList<QPair<QString, QString>> languages
        = {{QString(), tr("&Built-in texts")}, {QStringLiteral("en"), tr("&English catalogue")}};
    for (const auto& [code, title] : languages) {
        QAction* action = menu->addAction(title);
        action->setCheckable(true);
        action->setChecked(code.isEmpty());
        action->setData(code);
        m_languages->addAction(action);
        connect(action, &QAction::triggered, this, [this, code = code] { setLanguage(code); });
    }
    setCentralWidget(m_tabs);
    buildPages();
    resize(720, 480);
}

bool GalleryWindow::setLanguage(const QString& language)
{
    m_catalogue.unregisterFromHost();
    m_catalogue.clear();
    if (!language.isEmpty() && !(m_catalogue.loadBuiltIn(language) && m_catalogue.registerWithHost()))
        return false;
    for (QAction* action : m_languages->actions())
        action->setChecked(action->data().toString() == language);
    const QString current = m_names.value(m_tabs->currentIndex());
    buildPages();
    showPage(current);
    return true;
}

void GalleryWindow::buildPages()
{
    // Widgets read their texts when they are made: new pages show the new language.
    while (m_tabs->count() > 0) {
        QWidget* page = m_tabs->widget(0);
        m_tabs->removeTab(0);
        delete page;
    }
    m_names.clear();
    addPage(QStringLiteral("tree"), new TreeControlPage(m_tabs), tr("Tree control"));
    addPage(QStringLiteral("list"), new ListControlPage(m_tabs), tr("List control"));
    addPage(QStringLiteral("combo"), new EditControlsPage(m_tabs), tr("Combo and edits"));
    addPage(QStringLiteral("menu"), new MenuToolBarPage(m_tabs), tr("Menu and toolbar"));
    addPage(QStringLiteral("plotstyle"), new PlotStylePage(m_tabs), tr("Plot style"));
    addPage(QStringLiteral("pdf"), new PdfPreviewPage(m_tabs), tr("PDF preview"));
    addPage(QStringLiteral("blocks"), new BlocksPage(m_tabs), tr("Blocks"));
    addPage(QStringLiteral("dimensionstyle"), new DesignerDialogPage(m_tabs), tr("Dialog from Designer"));
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
