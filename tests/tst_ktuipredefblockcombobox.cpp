#include "blocktestsupport.h"
#include "plotstyletestsupport.h"

#include <KtUiPredefBlockComboBox>
#include <QtTest>

class KtUiPredefBlockComboBoxTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void freshCombo()
    {
        FreshDrawing drawing;
        drawing.db()->setInsunits(4);
        KtUiPredefBlockComboBox combo;
        const QStringList texts{"详细信息标注", "槽", "圆", "方框", "正六边形", "三角形"};
        const QImage tiles
            = QImage(":/kthost/images/common/predefblock.bmp").convertToFormat(QImage::Format_ARGB32);
        QCOMPARE(combo.count(), 6);
        for (int row = 0; row < 6; ++row) {
            QCOMPARE(combo.itemText(row), texts.at(row));
            QCOMPARE(combo.itemData(row), QVariant(row));
            QCOMPARE(iconImage(combo, row, QSize(17, 17)), tiles.copy(0, 17 * row, 17, 17));
        }
        // The slot is connected before the rows go in: the first row's block is made at once.
        QCOMPARE(combo.currentPredefIndex(), 0);
        QCOMPARE(combo.currentPredefId(), KtUiPredefBlockComboBox::GetBlockTableRecordId(L"_DetailCallout"));
        QCOMPARE(combo.getCurPredefBlockName(), QStringLiteral("_DetailCallout"));
        KtDbBlockTableRecord* block = nullptr;
        QCOMPARE(ktdbOpenObject(block, combo.currentPredefId(), KtDb::kForRead), Kt::eOk);
        QCOMPARE(block->blockInsertUnits(), 4);
        block->close();
        // Lines take all the by-block properties, the other entities only the colour.
        const QString line = QStringLiteral("layer 0, colour 0, ByBlock, weight -2, transparency 1");
        const QString other = QStringLiteral("layer 0, colour 0, ByLayer, weight -1, transparency 0");
        QCOMPARE(describeBlock(KtUiPredefBlockComboBox::GeneratePredefHeadBlock(1), true),
            (QStringList{other, other, line, line, other}));
        QCOMPARE(describeBlock(KtUiPredefBlockComboBox::GeneratePredefHeadBlock(4), true),
            (QStringList{other, other}));
    }

    void lookupsAndSelection()
    {
        // Without the bitmap the rows come all the same, with no icons.
        FreshDrawing drawing;
        MissingImages missing;
        KtUiPredefBlockComboBox combo;
        QCOMPARE(combo.count(), 6);
        for (int row = 0; row < 6; ++row)
            QVERIFY(combo.itemIcon(row).isNull());
        // Block names match whatever their case; display texts are no names.
        const std::pair<QString, int> rows[] = {{"_tagcircle", 2}, {"_TAGTRIANGLE", 5}, {"", -1}, {"圆", -1}};
        for (const auto& [name, row] : rows)
            QCOMPARE(combo.findItemByPredefBlockName(name), row);

        combo.blockSignals(true);
        combo.setCurrentIndex(2);
        combo.blockSignals(false);
        QVERIFY(KtUiPredefBlockComboBox::GetBlockTableRecordId(L"_TagCircle").isNull());
        const KtDbObjectId circle = combo.GetCurSelPredefHead();
        QVERIFY(!circle.isNull());
        QCOMPARE(combo.GetCurSelPredefHead(), circle);
        QCOMPARE(KtUiPredefBlockComboBox::GetBlockTableRecordId(L"_TAGCIRCLE"), circle);
        // SelectString compares the upper-cased name with the stored mixed-case names: nothing matches.
        for (const QString& name : {QStringLiteral("_TagBox"), QStringLiteral("_tagcircle")})
            QCOMPARE(combo.SelectString(0, name), -1);
        QCOMPARE(combo.currentIndex(), 2);
        // No row: no block, and no name.
        QVERIFY(KtUiPredefBlockComboBox::GeneratePredefHeadBlock(6).isNull());
        combo.setCurrentIndex(-1);
        QVERIFY(combo.GetCurSelPredefHead().isNull());
        QVERIFY(combo.currentPredefId().isNull());
        QCOMPARE(combo.currentPredefIndex(), -1);
        QVERIFY(combo.getCurPredefBlockName().isEmpty());

        // A second Initialize appends the rows again; the slot ignores items past the six rows.
        combo.Initialize();
        QCOMPARE(combo.count(), 12);
        combo.setCurrentIndex(8);
        QCOMPARE(combo.currentPredefIndex(), -1);
        combo.setCurrentIndex(4); // through both connections
        QCOMPARE(combo.currentPredefIndex(), 4);
        QCOMPARE(blockCount(drawing.db()), 5); // spaces, callout, circle, hexagon: each made once
    }

    void blocks_data()
    {
        QTest::addColumn<int>("measurement");
        QTest::addColumn<int>("index");
        QTest::addColumn<QStringList>("entities");
        const QString tagI
            = QStringLiteral("ATTDEF 0,-0.046875 h0.09375 TAGNUMBER/TAGNUMBER/输入标记编号 mode1");
        const QString tagM = QStringLiteral("ATTDEF 0,-1.5 h3 TAGNUMBER/TAGNUMBER/输入标记编号 mode1");
        // clang-format off
        QTest::newRow("imperial callout") << 0 << 0 << QStringList{"CIRCLE 0,0 r0.25", "LINE 0.25,0 -0.25,0", "ATTDEF 0,0.0208333 h0.09375 视图编号/视图编号/输入视图编号 mode1", "ATTDEF 0,-0.15625 h0.09375 图纸编号/图纸编号/输入图纸编号 mode1"};
        QTest::newRow("metric callout") << 1 << 0 << QStringList{"CIRCLE 0,0 r8", "LINE 8,0 -8,0", "ATTDEF 0,1 h3 视图编号/视图编号/输入视图编号 mode1", "ATTDEF 0,-6 h3 图纸编号/图纸编号/输入图纸编号 mode1"};
        QTest::newRow("imperial slot") << 0 << 1 << QStringList{"ARC -0.125,0 r0.125 1.5707963267949..4.71238898038469", "ARC 0.125,0 r0.125 4.71238898038469..1.5707963267949", "LINE -0.125,0.125 0.125,0.125", "LINE -0.125,-0.125 0.125,-0.125", tagI};
        QTest::newRow("metric circle") << 1 << 2 << QStringList{"CIRCLE 0,0 r4", tagM};
        QTest::newRow("metric 'hexagon' is a square") << 1 << 3 << QStringList{"PLINE closed w0 [-4,4 b0 -1/-1] [4,4 b0 -1/-1] [4,-4 b0 -1/-1] [-4,-4 b0 -1/-1]", tagM};
        QTest::newRow("imperial 'box' is a hexagon") << 0 << 4 << QStringList{"PLINE closed w0 [-0.144338,0 b0 -1/-1] [-0.0721688,0.125 b0 -1/-1] [0.0721688,0.125 b0 -1/-1] [0.144338,0 b0 -1/-1] [0.0721688,-0.125 b0 -1/-1] [-0.0721688,-0.125 b0 -1/-1]", tagI};
        QTest::newRow("metric triangle") << 1 << 5 << QStringList{"PLINE closed w0 [-6.9282,-4 b0 -1/-1] [0,8 b0 -1/-1] [6.9282,-4 b0 -1/-1]", tagM};
        QTest::newRow("imperial triangle") << 0 << 5 << QStringList{"PLINE closed w0 [-0.216506,-0.125 b0 -1/-1] [0,0.25 b0 -1/-1] [0.216506,-0.125 b0 -1/-1]", tagI};
        // clang-format on
    }

    void blocks()
    {
        QFETCH(int, measurement);
        QFETCH(int, index);
        QFETCH(QStringList, entities);
        FreshDrawing drawing(measurement);
        QCOMPARE(describeBlock(KtUiPredefBlockComboBox::GeneratePredefHeadBlock(index)), entities);
    }
};

QTEST_MAIN(KtUiPredefBlockComboBoxTest)
#include "tst_ktuipredefblockcombobox.moc"
