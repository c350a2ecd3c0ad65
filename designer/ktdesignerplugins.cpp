#include "ktdesignerplugins.h"

#include <QIcon>
#include <QMetaObject>
#include <QWidget>
#include <QXmlStreamWriter>

KtDesignerWidgetInterface::KtDesignerWidgetInterface(const KtDesignerWidget& widget, QObject* parent)
    : QObject(parent)
    , m_widget(widget)
{ }

QString KtDesignerWidgetInterface::name() const
{
    return QString::fromLatin1(m_widget.meta->className());
}

QString KtDesignerWidgetInterface::shortName() const
{
    const QString full = name();
    return full.mid(full.lastIndexOf(QLatin1Char(':')) + 1);
}

QString KtDesignerWidgetInterface::group() const
{
    return QStringLiteral("KtCmdQtUtils");
}

QString KtDesignerWidgetInterface::toolTip() const
{
    return QString::fromUtf8(m_widget.description);
}

QString KtDesignerWidgetInterface::whatsThis() const
{
    return toolTip();
}

QString KtDesignerWidgetInterface::includeFile() const
{
    // Designer writes an include in angle brackets as <header location="global">,
    // and uic then emits #include <ClassName>, as users of the library write it.
    return QLatin1Char('<') + shortName() + QLatin1Char('>');
}

QIcon KtDesignerWidgetInterface::icon() const
{
    return QIcon(QStringLiteral(":/ktdesigner/icons/") + QLatin1String(m_widget.icon));
}

bool KtDesignerWidgetInterface::isContainer() const
{
    return false;
}

QWidget* KtDesignerWidgetInterface::createWidget(QWidget* parent)
{
    QWidget* widget = m_widget.create(parent);
    // Some controls leave placing to the host dialog and ignore the parent they
    // are given (CKtTreeCtrl); on a form the widget must be the parent's child.
    if (widget->parentWidget() != parent)
        widget->setParent(parent);
    return widget;
}

bool KtDesignerWidgetInterface::isInitialized() const
{
    return m_initialized;
}

void KtDesignerWidgetInterface::initialize(QDesignerFormEditorInterface*)
{
    m_initialized = true;
}

QString KtDesignerWidgetInterface::domXml() const
{
    // Object names start in lower case, without the leading C of the
    // foundation-class controls: ktTreeCtrl, ktPsStyleList.
    QString objectName = shortName();
    if (objectName.size() > 1 && objectName.at(0) == QLatin1Char('C') && objectName.at(1).isUpper())
        objectName.remove(0, 1);
    objectName[0] = objectName.at(0).toLower();

    QString xml;
    QXmlStreamWriter writer(&xml);
    writer.writeStartElement(QStringLiteral("ui"));
    writer.writeAttribute(QStringLiteral("language"), QStringLiteral("c++"));
    // The widget box shows the class without its namespace.
    writer.writeAttribute(QStringLiteral("displayname"), shortName());
    writer.writeStartElement(QStringLiteral("widget"));
    writer.writeAttribute(QStringLiteral("class"), name());
    writer.writeAttribute(QStringLiteral("name"), objectName);
    writer.writeStartElement(QStringLiteral("property"));
    writer.writeAttribute(QStringLiteral("name"), QStringLiteral("geometry"));
    writer.writeStartElement(QStringLiteral("rect"));
    writer.writeTextElement(QStringLiteral("x"), QStringLiteral("0"));
    writer.writeTextElement(QStringLiteral("y"), QStringLiteral("0"));
    writer.writeTextElement(QStringLiteral("width"), QString::number(m_widget.size.width()));
    writer.writeTextElement(QStringLiteral("height"), QString::number(m_widget.size.height()));
    writer.writeEndElement(); // rect
    writer.writeEndElement(); // property
    writer.writeEndElement(); // widget
    writer.writeStartElement(QStringLiteral("customwidgets"));
    writer.writeStartElement(QStringLiteral("customwidget"));
    writer.writeTextElement(QStringLiteral("class"), name());
    writer.writeTextElement(
        QStringLiteral("extends"), QString::fromLatin1(m_widget.meta->superClass()->className()));
    writer.writeEndElement(); // customwidget
    writer.writeEndElement(); // customwidgets
    writer.writeEndElement(); // ui
    return xml;
}

KtDesignerPlugins::KtDesignerPlugins(QObject* parent)
    : QObject(parent)
{
    for (const KtDesignerWidget& widget : ktDesignerWidgets())
        m_widgets.append(new KtDesignerWidgetInterface(widget, this));
}

QList<QDesignerCustomWidgetInterface*> KtDesignerPlugins::customWidgets() const
{
    return m_widgets;
}
