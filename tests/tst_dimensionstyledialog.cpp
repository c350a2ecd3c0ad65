// Tests of the dimension-style dialog laid out in Designer: the form builds
// with the library's widgets in it, and picking an arrowhead as a user does
// makes its block in the drawing.

#include "dimensionstyledialog.h"

#include <KtApDocManager>
#include <KtUiArrowComboBox>

#include <QtTest>

class TestDimensionStyleDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pickArrowheadByKeyboard()
    {
        DimensionStyleDialog dialog;
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        KtUiArrowComboBox* first = dialog.firstArrow();
        first->setFocus();
        QVERIFY(!KtUiArrowComboBox::hasBlock(L"_ClosedBlank", curDatabase()));
        QTest::keyClick(first, Qt::Key_Down); // closed filled -> closed blank
        QCOMPARE(first->getCurArrowBlockName(), QStringLiteral("_CLOSEDBLANK"));
        QVERIFY(KtUiArrowComboBox::hasBlock(L"_ClosedBlank", curDatabase()));
        QCOMPARE(first->GetCurSelArrowHead(), KtUiArrowComboBox::GetBlockTableRecordId(L"_ClosedBlank"));
    }
};

QTEST_MAIN(TestDimensionStyleDialog)
#include "tst_dimensionstyledialog.moc"
