#pragma once

#include <QMainWindow>

class QTabWidget;

/// The gallery's main window: one tab per family of widgets.
class GalleryWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit GalleryWindow(QWidget* parent = nullptr);

    /// Renders the window into a PNG file; false when it cannot be written.
    bool saveScreenshot(const QString& path);

private:
    QTabWidget* m_tabs;
};
