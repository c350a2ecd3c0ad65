#include "blocktestsupport.h"

#include <KtUiArrowComboBox>
#include <KtUiDialogs>
#include <KtUiPropertyObject>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QtTest>
#include <ktheap.h>

namespace {

/// Adds block @p name to the current drawing with the given flags; returns its id.
KtDbObjectId addBlock(
    const wchar_t* name, bool external = false, bool dependent = false, bool anonymous = false)
{
    auto* record = new KtDbBlockTableRecord;
    record->setName(name);
    record->setIsFromExternalReference(external);
    record->setIsDependent(dependent);
    record->setIsAnonymous(anonymous);
    KtDbObjectId id;
    KtUiArrowComboBox::AddRecordToBlockTable(record, id); // a refused record leaves the null id
    return id;
}

QStringList blockNames(const QVariantList& blocks)
{
    QStringList names;
    for (const QVariant& block : blocks)
        names << block.toMap().value(QStringLiteral("name")).toString();
    return names;
}

} // namespace

class KtUiArrowComboBoxTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowsAndLookups()
    {
        FreshDrawing drawing;
        KtUiArrowComboBox combo;
        QCOMPARE(combo.count(), 21);
        QCOMPARE(combo.itemText(0), QStringLiteral("实心闭合"));
        QCOMPARE(combo.itemText(20), QStringLiteral("用户箭头..."));
        const int data[20] = {0, 15, 9, 1, 19, 12, 6, 4, 5, 7, 8, 2, 3, 10, 14, 13, 17, 16, 19, 11};
        for (int row = 0; row < 20; ++row) {
            QCOMPARE(combo.itemData(row), QVariant(data[row]));
            QVERIFY2(!combo.itemIcon(row).pixmap(16, 16).isNull(), qPrintable(combo.itemText(row)));
        }
        for (int index : {0, -1, 20}) // closed filled has no block; the others are no standard rows
            QVERIFY(KtUiArrowComboBox::GenerateArrowHeadBlock(index).isNull());
        QCOMPARE(blockCount(drawing.db()), 2); // nor does building the combo

        // Block names match whatever their case; the empty name is closed filled's.
        const std::pair<QString, QString> descriptions[]
            = {{QString(), QStringLiteral("实心闭合")}, {"_closedblank", QStringLiteral("空心闭合")},
                {"_ORIGIN2", QStringLiteral("指示原点 2")}, {"_Nonesuch", QString()}};
        for (const auto& [blockName, text] : descriptions)
            QCOMPARE(combo.getArrowDescByBlockName(blockName), text);
        QSignalSpy spy(&combo, &KtUiArrowComboBox::arrowItemChanged);
        QCOMPARE(combo.SelectString(99, QStringLiteral("_dot")), 3);
        QCOMPARE(combo.currentIndex(), 3);
        // Selected with signals on: the slot makes the block once and reports the row.
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).toInt(), 3);
        const KtDbObjectId dot = combo.currentArrowId();
        QVERIFY(!dot.isNull());
        QCOMPARE(KtUiArrowComboBox::GetBlockTableRecordId(L"_DOT"), dot);
        QCOMPARE(combo.GetCurSelArrowHead(), dot);
        QCOMPARE(KtUiArrowComboBox::GenerateArrowHeadBlock(3), dot);
        QCOMPARE(blockCount(drawing.db()), 3);
        QVERIFY(KtUiArrowComboBox::hasBlock(L"_dot", drawing.db()));
        QVERIFY(!KtUiArrowComboBox::hasBlock(L"_dot", nullptr));
        QCOMPARE(combo.findItemByArrowBlockName(QString()), -1);
        QCOMPARE(combo.SelectString(0, QString()), 0);
        QCOMPARE(combo.currentIndex(), 0);
        QCOMPARE(combo.count(), 21);

        QVERIFY(combo.getCurArrowBlockName().isEmpty()); // closed filled
        combo.setCurrentIndex(16);
        QCOMPARE(combo.getCurArrowBlockName(), QStringLiteral("_DATUMBLANK"));
        combo.addItemWithoutIcon(QStringLiteral("MyArrow"));
        QCOMPARE(combo.currentIndex(), 0);
        QCOMPARE(combo.getCurArrowBlockName(), QStringLiteral("MyArrow"));

        // Drawing blocks go on top, newest first, six at most: the seventh drops the oldest, MyArrow.
        // The result is the list's size less one, not the new block's item (always 0).
        QList<int> results;
        for (const QString& name : QStringList{"b2", "b3", "b4", "b5", "b6", "b7"})
            results << combo.findItemByArrowBlockName(name);
        QCOMPARE(results, (QList<int>{1, 2, 3, 4, 5, 5}));
        QCOMPARE(combo.chosenBlocks().last().blockName, QStringLiteral("B2"));
        QCOMPARE(combo.count(), 6 + 1 + 21);
        QCOMPARE(combo.itemText(0), QStringLiteral("b7"));
        QCOMPARE(combo.itemData(6, Qt::AccessibleDescriptionRole).toString(), QStringLiteral("separator"));
        QCOMPARE(combo.itemText(7), QStringLiteral("实心闭合"));
        QCOMPARE(combo.findItemByArrowBlockName(QStringLiteral("B5")), 2); // found by upper-case key
        QCOMPARE(combo.findItemByArrowBlockName(QStringLiteral("_Open")), 6); // the row, not the item
    }

    void generatedBlocks_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QStringList>("entities");
        const QString tail = QStringLiteral("LINE 0,0 -1,0");
        const QStringList closed{"LINE -1,0.1667 0,0", "LINE -1,-0.1667 0,0", "LINE -1,0.1667 -1,-0.1667"};
        // clang-format off
        QTest::newRow("closed blank") << 1 << "_ClosedBlank" << closed;
        QTest::newRow("closed") << 2 << "_Closed" << closed + QStringList{tail};
        QTest::newRow("dot") << 3 << "_Dot" << QStringList{"PLINE closed w0.5 [-0.25,0 b1 0.5/0.5] [0.25,0 b1 0.5/0.5]", "LINE -0.5,0 -1,0"};
        QTest::newRow("arch tick") << 4 << "_ArchTick" << QStringList{"PLINE w0.15 [-0.5,-0.5 b0 0.15/0.15] [0.5,0.5 b0 0.15/0.15]"};
        QTest::newRow("oblique") << 5 << "_Oblique" << QStringList{"LINE -0.5,-0.5 0.5,0.5"};
        QTest::newRow("open") << 6 << "_Open" << QStringList{"LINE -1,0.1667 0,0", "LINE -1,-0.1667 0,0", tail};
        QTest::newRow("origin") << 7 << "_Origin" << QStringList{"CIRCLE 0,0 r0.5", tail};
        QTest::newRow("origin2") << 8 << "_Origin2" << QStringList{"CIRCLE 0,0 r0.5", "CIRCLE 0,0 r0.25", "LINE -0.5,0 -1,0"};
        QTest::newRow("open90") << 9 << "_Open90" << QStringList{"LINE -0.5,0.5 0,0", "LINE 0,0 -0.5,-0.5", tail};
        QTest::newRow("open30: 0.2679, not tan 15") << 10 << "_Open30" << QStringList{"LINE -1,0.2679 0,0", "LINE 0,0 -1,-0.2679", tail};
        QTest::newRow("dot small") << 11 << "_DotSmall" << QStringList{"PLINE closed w0.5 [-0.0625,0 b1 0.5/0.5] [0.0625,0 b1 0.5/0.5]"};
        QTest::newRow("dot blank") << 12 << "_DotBlank" << QStringList{"CIRCLE 0,0 r0.5", "LINE -0.5,0 -1,0"};
        QTest::newRow("small") << 13 << "_Small" << QStringList{"CIRCLE 0,0 r0.25"};
        QTest::newRow("box blank") << 14 << "_BoxBlank" << QStringList{"LINE -0.5,-0.5 0.5,-0.5", "LINE 0.5,-0.5 0.5,0.5", "LINE 0.5,0.5 -0.5,0.5", "LINE -0.5,0.5 -0.5,-0.5", "LINE -0.5,0 -1,0"};
        QTest::newRow("box filled") << 15 << "_BoxFilled" << QStringList{"SOLID -0.5,0.5 0.5,0.5 -0.5,-0.5 0.5,-0.5", "LINE -0.5,0 -1,0"};
        QTest::newRow("datum blank: 0.5774, not tan 30") << 16 << "_DatumBlank" << QStringList{"LINE 0,0.5774 -1,0", "LINE -1,0 0,-0.5774", "LINE 0,-0.5774 0,0.5774"};
        QTest::newRow("datum filled") << 17 << "_DatumFilled" << QStringList{"SOLID 0,0.5774 -1,0 0,-0.5774 0,-0.5774"};
        QTest::newRow("integral") << 18 << "_Integral" << QStringList{"ARC 0.4449,-0.0913 r0.4542 1.78023583703422..2.93215314335047", "ARC -0.4449,0.0913 r0.4542 4.92182849062401..6.07374579694027"};
        QTest::newRow("none") << 19 << "_None" << QStringList{};
        // clang-format on
    }

    void generatedBlocks()
    {
        QFETCH(int, index);
        QFETCH(QString, name);
        QFETCH(QStringList, entities);
        FreshDrawing drawing;
        const KtDbObjectId id = KtUiArrowComboBox::GenerateArrowHeadBlock(index);
        KtDbBlockTableRecord* block = nullptr;
        QCOMPARE(ktdbOpenObject(block, id, KtDb::kForRead), Kt::eOk);
        QCOMPARE(ktutKtStringToQString(block->name()), name); // mixed case, as created
        block->close();
        QCOMPARE(describeBlock(id), entities);
        // All by block, save the line weight of polylines and solids, which is by layer.
        const QStringList properties = describeBlock(id, true);
        for (int i = 0; i < entities.size(); ++i) {
            const bool byLayer = entities.at(i).startsWith("PLINE") || entities.at(i).startsWith("SOLID");
            QCOMPARE(properties.value(i),
                QStringLiteral("layer 0, colour 0, ByBlock, weight %1, transparency 1")
                    .arg(byLayer ? -1 : -2));
        }
    }

    void userArrow()
    {
        // Offered to the dialog: no model space or layouts (by name, from 12 characters on, in any case)
        // and no external, dependent or anonymous blocks (by flag, whatever the name).
        FreshDrawing drawing;
        const KtDbObjectId spac = addBlock(L"*MODEL_SPAC");
        addBlock(L"*U7");
        addBlock(L"*U8", false, false, true);
        addBlock(L"*Paper_Space3");
        addBlock(L"*model_spaceX");
        addBlock(L"Xref", true);
        addBlock(L"XrefPart", false, true);
        const KtDbObjectId flag = addBlock(L"Flag");
        QCOMPARE(blockCount(drawing.db()), 2 + 8);
        KtUiArrowComboBox combo;
        QCOMPARE(combo.getBlockArray().first().toMap().value("blockId").toLongLong(), qint64(spac.handle()));
        // The scripted dialog notes the kind, whether its parent is the combo, "currArrow" and the names
        // in "blocks" of each call, and answers with `answer` (none: cancelled).
        QString answer;
        QStringList seen;
        const QString path = QStringLiteral("Dialog/CmdsUI/UserArrowDlg");
        const KtUiDialogHandler previous
            = ktuiRegisterDialog(path, [&](int kind, KtUiPropertyObject& properties, QWidget* parent) {
                  seen << QString::number(kind) << QString::number(parent == &combo)
                       << properties.get(QStringLiteral("currArrow")).toString()
                       << blockNames(properties.get(QStringLiteral("blocks")).toList());
                  if (answer.isEmpty())
                      return 0;
                  properties.set(QStringLiteral("selectedBlockName"), answer);
                  return 1;
              });
        const auto restore = qScopeGuard([&] { ktuiRegisterDialog(path, previous); });
        QSignalSpy spy(&combo, &KtUiArrowComboBox::arrowItemChanged);

        // Cancelled: the previous choice comes back and is reported once.
        combo.setCurrentIndex(7);
        spy.clear();
        combo.setCurrentIndex(20);
        QCOMPARE(seen, (QStringList{"49", "1", "指示原点", "*MODEL_SPAC", "*U7", "Flag", "_Origin"}));
        QCOMPARE(spy.count(), 1);
        QCOMPARE(combo.currentIndex(), 7);
        QCOMPARE(spy.at(0).at(0).toInt(), 7);
        QVERIFY(!combo.signalsBlocked());
        QCOMPARE(combo.count(), 21);

        // Answered: the chosen block is listed above the standard rows, selected and reported.
        answer = QStringLiteral("Flag");
        combo.setCurrentIndex(5);
        seen.clear();
        spy.clear();
        combo.setCurrentIndex(20);
        QCOMPARE(seen, (QStringList{"49", "1", "倾斜", "*MODEL_SPAC", "*U7", "Flag", "_Origin", "_Oblique"}));
        QCOMPARE(spy.count(), 1);
        QCOMPARE(combo.currentIndex(), 0);
        QCOMPARE(spy.at(0).at(0).toInt(), 0);
        QCOMPARE(combo.currentText(), QStringLiteral("Flag"));
        QCOMPARE(combo.count(), 1 + 1 + 21);
        QCOMPARE(combo.GetCurSelArrowHead(), flag);
        // Items 0 to 19 are taken as standard rows by the slot, drawing blocks above included.
        combo.setCurrentIndex(5);
        combo.setCurrentIndex(0);
        QCOMPARE(combo.currentArrowIndex(), 0);
        QVERIFY(combo.currentArrowId().isNull());
    }

    void blockTableRefusals()
    {
        FreshDrawing drawing;
        const long long heap = ktHeapLiveBlocks();
        KtDbBlockTable* reader = nullptr;
        QCOMPARE(drawing.db()->getSymbolTable(reader, KtDb::kForRead), Kt::eOk);
        // Read while held open for read; write refused: nothing made, nothing leaked.
        QVERIFY(KtUiArrowComboBox::GenerateArrowHeadBlock(2).isNull());
        auto* record = new KtDbBlockTableRecord;
        KtDbObjectId id;
        QVERIFY(!KtUiArrowComboBox::AddRecordToBlockTable(record, id));
        delete record; // still the caller's
        reader->close();
        QCOMPARE(ktHeapLiveBlocks(), heap);

        // A record the table refuses is deleted with its entities.
        auto* refused = new KtDbBlockTableRecord;
        refused->setName(L"a<b");
        KtDbObjectId entityId;
        refused->appendKtDbEntity(entityId, new KtDbLine);
        id = drawing.db()->modelSpaceId(); // written over with the null id
        QVERIFY(!KtUiArrowComboBox::AddRecordToBlockTable(refused, id));
        QVERIFY(id.isNull());
        QCOMPARE(ktHeapLiveBlocks(), heap);
        QCOMPARE(blockCount(drawing.db()), 2);
        QVERIFY(!KtUiArrowComboBox::GenerateArrowHeadBlock(2).isNull());
    }
};

QTEST_MAIN(KtUiArrowComboBoxTest)
#include "tst_ktuiarrowcombobox.moc"
