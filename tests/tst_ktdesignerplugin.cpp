// Tests of the Designer plugin: loaded as Designer loads it, every widget it
// offers checked against the classes of the library.

#include <CuiAfxCtrl>
#include <KtPdfPreview>
#include <KtPlotStyleWidgets>
#include <KtUiBlockPickers>

#include <QComboBox>
#include <QDomDocument>
#include <QPluginLoader>
#include <QtTest>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

using namespace TORV_PLOT_SPECIALLY_SPCAE;

namespace {

struct Expected
{
    const char* name; // as uic writes it, with the namespace
    const char* include;
    const QMetaObject* meta;
    bool hasRows; // a combo that shows rows as soon as it is made
};

// One row per widget the plugin must offer, no more and no fewer.
// clang-format off
#define KT_ROW(scope, cls, rows) {scope #cls, "<" #cls ">", &cls::staticMetaObject, rows}
#define PS "TORV_PLOT_SPECIALLY_SPCAE::"
// clang-format on
const Expected kExpected[] = {
    KT_ROW("", CKtTreeCtrl, false),
    KT_ROW("", CKtListCtrl, false),
    KT_ROW("", CKtComboBox, false),
    KT_ROW("", CKtEdit, false),
    KT_ROW("", CKtRichEditCtrl, false),
    KT_ROW("", CKtToolBar, false),
    KT_ROW(PS, KtPsLineTypeComboBox, true),
    KT_ROW(PS, KtPsLineWeightComboBox, true),
    KT_ROW(PS, KtPsFillStyleComboBox, true),
    KT_ROW(PS, KtPsJoinStyleComboBox, true),
    KT_ROW(PS, KtPsExtremePointStyleComboBox, true),
    KT_ROW(PS, KtPsTrueColorComboBox, true),
    KT_ROW(PS, KtPsStyleList, false),
    KT_ROW(PS, StyleListItem, false),
    KT_ROW("", KtUiArrowComboBox, true),
    KT_ROW("", KtUiPredefBlockComboBox, true),
    KT_ROW("", KtPdfPageListWidget, false),
};

} // namespace

class TestKtDesignerPlugin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_loader.setFileName(QStringLiteral(KT_DESIGNER_PLUGIN));
        QVERIFY2(m_loader.load(), qPrintable(m_loader.errorString()));
        QCOMPARE(m_loader.metaData().value(QLatin1String("IID")).toString(),
            QStringLiteral("org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface"));
        auto* collection = qobject_cast<QDesignerCustomWidgetCollectionInterface*>(m_loader.instance());
        QVERIFY(collection);
        m_offered = collection->customWidgets();
    }

    void offersEveryWidgetOnce()
    {
        QStringList offered, expected;
        for (const QDesignerCustomWidgetInterface* widget : qAsConst(m_offered))
            offered.append(widget->name());
        for (const Expected& row : kExpected)
            expected.append(QString::fromLatin1(row.name));
        offered.sort();
        expected.sort();
        QCOMPARE(offered, expected); // a name offered twice fails too
    }

    void widget_data()
    {
        QTest::addColumn<int>("row");
        for (int row = 0; row < int(std::size(kExpected)); ++row)
            QTest::newRow(kExpected[row].name) << row;
    }

    void widget()
    {
        QFETCH(int, row);
        const Expected& expected = kExpected[row];
        const QString name = QString::fromLatin1(expected.name);
        const auto found = std::find_if(m_offered.cbegin(), m_offered.cend(),
            [&name](const QDesignerCustomWidgetInterface* widget) { return widget->name() == name; });
        QVERIFY(found != m_offered.cend());
        QDesignerCustomWidgetInterface* plugin = *found;
        QCOMPARE(plugin->group(), QStringLiteral("KtCmdQtUtils"));
        QCOMPARE(plugin->includeFile(), QString::fromLatin1(expected.include));
        QVERIFY(!plugin->icon().pixmap(22, 22).isNull());
        QVERIFY(!plugin->toolTip().isEmpty());
        QVERIFY(!plugin->whatsThis().isEmpty());
        QVERIFY(!plugin->isContainer());

        // The <widget> names the class and has a geometry.
        QDomDocument dom;
        QVERIFY(dom.setContent(plugin->domXml()));
        const QDomElement widgetXml = dom.elementsByTagName(QStringLiteral("widget")).at(0).toElement();
        QCOMPARE(widgetXml.attribute(QStringLiteral("class")), name);
        const QDomElement geometry = widgetXml.firstChildElement(QStringLiteral("property"));
        QCOMPARE(geometry.attribute(QStringLiteral("name")), QStringLiteral("geometry"));
        const QDomElement rect = geometry.firstChildElement(QStringLiteral("rect"));
        QVERIFY(rect.firstChildElement(QStringLiteral("width")).text().toInt() > 0);
        QVERIFY(rect.firstChildElement(QStringLiteral("height")).text().toInt() > 0);

        QWidget form;
        QWidget* widget = plugin->createWidget(&form);
        QVERIFY(widget);
        QCOMPARE(widget->metaObject(), expected.meta); // the library's class, not a stand-in
        QCOMPARE(QString::fromLatin1(widget->metaObject()->className()), plugin->name());
        QCOMPARE(widget->parentWidget(), &form);
        if (expected.hasRows) {
            auto* combo = qobject_cast<QComboBox*>(widget);
            QVERIFY(combo && combo->count() > 0);
        }
    }

private:
    QPluginLoader m_loader;
    QList<QDesignerCustomWidgetInterface*> m_offered;
};

QTEST_MAIN(TestKtDesignerPlugin)
#include "tst_ktdesignerplugin.moc"
