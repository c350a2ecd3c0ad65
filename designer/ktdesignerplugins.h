// Qt Designer plugins for the library's widgets: one generic widget interface
// driven by a table of descriptors, and the collection Designer loads.
#pragma once

#include <QList>
#include <QObject>
#include <QSize>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#include <vector>

/// One widget as the widget box offers it.
struct KtDesignerWidget
{
    /// The class: its name (with namespace) as uic writes it, and its Qt base class.
    const QMetaObject* meta;
    /// An icon under :/ktdesigner/icons/.
    const char* icon;
    /// One line for the tool tip and "What's This".
    const char* description;
    /// Size of a widget dropped on a form.
    QSize size;
    /// Makes a widget for Designer; must not need a parent.
    QWidget* (*create)(QWidget* parent);
};

/// The widgets offered, in widget box order (ktdesignerwidgets.cpp).
const std::vector<KtDesignerWidget>& ktDesignerWidgets();

/// The Designer interface of one KtDesignerWidget.
class KtDesignerWidgetInterface : public QObject, public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    KtDesignerWidgetInterface(const KtDesignerWidget& widget, QObject* parent);

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    /// The forwarding header in angle brackets: forms then include <ClassName>.
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override;
    /// The widget, always a child of @p parent, whatever its constructor does with it.
    QWidget* createWidget(QWidget* parent) override;
    bool isInitialized() const override;
    void initialize(QDesignerFormEditorInterface* core) override;
    QString domXml() const override;

private:
    /// The class name without its namespace.
    QString shortName() const;

    const KtDesignerWidget& m_widget;
    bool m_initialized = false;
};

/**
 * @brief The widget box group "KtCmdQtUtils".
 *
 * CKtMenu is not offered: it is a popup, which makes no sense placed on a form
 * as a child widget, and Designer edits menus in its own menu bar editor.
 */
class KtDesignerPlugins : public QObject, public QDesignerCustomWidgetCollectionInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface")
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

public:
    explicit KtDesignerPlugins(QObject* parent = nullptr);

    QList<QDesignerCustomWidgetInterface*> customWidgets() const override;

private:
    QList<QDesignerCustomWidgetInterface*> m_widgets;
};
