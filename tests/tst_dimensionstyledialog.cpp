// Tests of the dimension-style dialog laid out in Designer: the form builds
// with the library's widgets in it, and picking as a user does makes blocks.

#include "dimensionstyledialog.h"

#include <CKtTreeCtrl>
#include <KtApDocManager>
#include <KtUiArrowComboBox>
#include <KtUiPredefBlockComboBox>

#include <QCheckBox>
#include <QtTest>

namespace {

bool inDrawing(const QString& block)
{
    return KtUiArrowComboBox::hasBlock(block.toStdWString().c_str(), curDatabase());
}

} // namespace

class TestDimensionStyleDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        // Each test on a drawing of its own.
        KtApDocManager* documents = ktDocManagerPtr();
        KtApDocument* old = documents->curDocument();
        documents->newDocument();
        documents->closeDocument(old);
    }

    void pickArrowheadByKeyboard()
    {
        DimensionStyleDialog dialog;
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        KtUiArrowComboBox* first = dialog.firstArrow();
        first->setFocus();
        QTest::keyClick(first, Qt::Key_Down); // closed filled -> closed blank
        const QString block = first->getCurArrowBlockName();
        QVERIFY(!block.isEmpty());
        QVERIFY(inDrawing(block));
        QVERIFY(!first->GetCurSelArrowHead().isNull());
        // The second follows while the box is ticked, and stays once it is not.
        QCOMPARE(dialog.secondArrow()->getCurArrowBlockName(), block);
        QVERIFY(!dialog.secondArrow()->isEnabled());
        QVERIFY(dialog.summary().contains(block));
        QTest::mouseClick(dialog.findChild<QCheckBox*>("secondFollowsFirst"), Qt::LeftButton);
        QVERIFY(dialog.secondArrow()->isEnabled());
        QTest::keyClick(first, Qt::Key_Down);
        QCOMPARE(dialog.secondArrow()->getCurArrowBlockName(), block);
        QVERIFY(first->getCurArrowBlockName() != block);
    }

    void chooseStyleAndCallout()
    {
        DimensionStyleDialog dialog;
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        CKtTreeCtrl* styles = dialog.styles();
        QCOMPARE(styles->GetCount(), 5u);
        // "Radial" under "ISO-25" puts a dot on the leader.
        QTreeWidgetItem* iso = styles->GetNextSiblingItem(styles->GetRootItem());
        QTreeWidgetItem* radial = styles->GetNextSiblingItem(styles->GetChildItem(iso));
        QCOMPARE(radial->text(0), QStringLiteral("Radial"));
        QTest::mouseClick(styles->viewport(), Qt::LeftButton, {}, styles->visualItemRect(radial).center());
        QCOMPARE(styles->GetSelectedItem(), radial);
        QVERIFY(!dialog.leaderArrow()->getCurArrowBlockName().isEmpty());
        QVERIFY(inDrawing(dialog.leaderArrow()->getCurArrowBlockName()));

        KtUiPredefBlockComboBox* callout = dialog.callout();
        callout->setCurrentIndex(callout->count() - 1);
        QVERIFY(inDrawing(callout->getCurPredefBlockName()));
        QVERIFY(dialog.summary().endsWith(callout->getCurPredefBlockName()));
    }
};

QTEST_MAIN(TestDimensionStyleDialog)
#include "tst_dimensionstyledialog.moc"
