#pragma once

#include <KtUiCatalogueLanguageSvr>
#include <QMainWindow>
#include <QStringList>

class QActionGroup;
class QTabWidget;

/**
 * The gallery's main window: one tab per family of widgets.
 *
 * Each page has a short name ("tree", "list", ...) by which the command line
 * selects it. A page that is still preparing what it shows (a preview being
 * rendered, say) sets the dynamic property "galleryBusy" to true and back to
 * false when done; a screenshot waits for that.
 *
 * The Language menu switches between the widgets' built-in texts and the
 * English catalogue and builds the pages again, so that every widget reads its
 * texts anew.
 */
class GalleryWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit GalleryWindow(QWidget* parent = nullptr);

    /// The names of the pages, in tab order.
    QStringList pageNames() const;
    /// Makes the page of that name current; false when there is none.
    bool showPage(const QString& name);
    /// True while the current page says it is still busy.
    bool isCurrentPageBusy() const;

    /// Renders the window into a PNG file; false when it cannot be written.
    bool saveScreenshot(const QString& path);

    /// Registers the embedded catalogue of @p language ("en"), or none for an empty one, and rebuilds the
    /// pages.
    bool setLanguage(const QString& language);

private:
    void buildPages();
    void addPage(const QString& name, QWidget* page, const QString& title);

    QTabWidget* m_tabs;
    QStringList m_names;
    KtUiCatalogueLanguageSvr m_catalogue;
    QActionGroup* m_languages;
};
