// Tests of the Designer plugin: loaded as Designer loads it, every widget it
// offers made and checked against the classes of the library.

#include <CuiAfxCtrl>
#include <KtPdfPreview>
#include <KtPlotStyleWidgets>
#include <KtUiBlockPickers>

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
};

// One row per widget the plugin must offer, no more and no fewer.
// clang-format off
#define KT_ROW(scope, cls) {scope #cls, "<" #cls ">", &cls::staticMetaObject}
#define PS "TORV_PLOT_SPECIALLY_SPCAE::"
// clang-format on
const Expected kExpected[] = {
    KT_ROW("", CKtTreeCtrl),
    KT_ROW("", CKtListCtrl),
    KT_ROW("", CKtComboBox),
    KT_ROW("", CKtEdit),
    KT_ROW("", CKtRichEditCtrl),
    KT_ROW("", CKtToolBar),
    KT_ROW(PS, KtPsLineTypeComboBox),
    KT_ROW(PS, KtPsLineWeightComboBox),
    KT_ROW(PS, KtPsFillStyleComboBox),
    KT_ROW(PS, KtPsJoinStyleComboBox),
    KT_ROW(PS, KtPsExtremePointStyleComboBox),
    KT_ROW(PS, KtPsTrueColorComboBox),
    KT_ROW(PS, KtPsStyleList),
    KT_ROW(PS, StyleListItem),
    KT_ROW("", KtUiArrowComboBox),
    KT_ROW("", KtUiPredefBlockComboBox),
    KT_ROW("", KtPdfPageListWidget),
};

} // namespace

class TestKtDesignerPlugin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyWidget()
    {
        QPluginLoader loader(QStringLiteral(KT_DESIGNER_PLUGIN));
        auto* collection = qobject_cast<QDesignerCustomWidgetCollectionInterface*>(loader.instance());
        QVERIFY2(collection, qPrintable(loader.errorString()));
        const QList<QDesignerCustomWidgetInterface*> offered = collection->customWidgets();
        // As many as expected, and each expected one found: none is offered twice.
        QCOMPARE(offered.size(), int(std::size(kExpected)));
        for (const Expected& expected : kExpected) {
            const auto found = std::find_if(
                offered.cbegin(), offered.cend(), [&](const QDesignerCustomWidgetInterface* plugin) {
                    return plugin->name() == expected.name;
                });
            QVERIFY2(found != offered.cend(), expected.name);
            QCOMPARE((*found)->group(), QStringLiteral("KtCmdQtUtils"));
            QCOMPARE((*found)->includeFile(), QString::fromLatin1(expected.include));
            QWidget form;
            QWidget* widget = (*found)->createWidget(&form);
            QVERIFY2(widget && widget->metaObject() == expected.meta, expected.name); // not a stand-in
            QCOMPARE(widget->parentWidget(), &form);
        }
    }
};

QTEST_MAIN(TestKtDesignerPlugin)
#include "tst_ktdesignerplugin.moc"
