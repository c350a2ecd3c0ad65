// Tests of KtPsLineWeightComboBox: rows from the caller's list, texts in both
// units, sample line widths, selection by position and the signals of a rebuild.

#include "plotstyletestsupport.h"

#include <KtPsLineWeightComboBox>
#include <QSignalSpy>
#include <QtTest>

using namespace TORV_PLOT_SPECIALLY_SPCAE;

class TestKtPsLineWeightComboBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowsAndSelection()
    {
        KtPsLineWeightComboBox combo;
        QVector<double> weights;
        combo.setLineWeightList(weights);
        QVERIFY(combo.count() == 1 && combo.itemIcon(0).isNull());

        weights = {0.25, 0.30, 2.11, 0.0, -3.0, 1e300, qQNaN()};
        combo.setLineWeightList(weights);
        QVERIFY(combo.getLineWeightList() == weights && combo.count() == 8);
        // The data is the 1-based position, not the weight.
        for (int row = 0; row < 8; ++row)
            QCOMPARE(combo.getLineWeight(row), double(row));
        QVERIFY(combo.getLineWeight(8) == 0.0 && combo.getLineWeight(-1) == 0.0);
        QCOMPARE(combo.itemText(5), QStringLiteral("-3.0000 毫米"));
        // (int)(weight * 10 + 1) pixels, counted down the middle of the picture.
        const int pixels[] = {3, 4, 22, 1};
        for (int row = 1; row <= 4; ++row) {
            const QImage picture = iconImage(combo, row, QSize(80, 25));
            int drawn = 0;
            for (int y = 0; y < picture.height(); ++y)
                drawn += qAlpha(picture.pixel(40, y)) ? 1 : 0;
            QCOMPARE(drawn, pixels[row - 1]);
        }

        QSignalSpy index(&combo, QOverload<int>::of(&QComboBox::currentIndexChanged));
        // Selecting by position is silent. position -> current row, starting from row 1 each time
        const QPair<int, int> cases[] = {{0, 0}, {2, 2}, {9, 1}, {-1, 1}};
        for (const auto& [position, row] : cases) {
            combo.QComboBox::setCurrentIndex(1);
            index.clear();
            combo.setCurrentLineWeight(position);
            QVERIFY2(combo.currentIndex() == row && index.isEmpty(), qPrintable(QString::number(position)));
        }
        // Setting the very list it holds is a rebuild all the same, and Qt reports it.
        combo.setCurrentIndex(3);
        index.clear();
        QVector<double> same = combo.getLineWeightList();
        combo.setLineWeightList(same);
        QVERIFY(combo.currentIndex() == 0 && index.count() >= 1);
    }

    void texts()
    {
        // weight, inches, English catalogue -> text; the other unit gives another text.
        const std::tuple<double, bool, bool, QString> cases[] = {{0.25, true, false, "0.0098 英寸"},
            {0.5, false, true, "0.5000 mm"}, {2.0, true, true, "0.0787 in"}};
        for (const auto& [weight, inches, english, text] : cases) {
            std::unique_ptr<EnglishTexts> language(english ? new EnglishTexts : nullptr);
            KtPsLineWeightComboBox combo;
            QVector<double> weights = {weight};
            combo.setLineWeightList(weights);
            combo.resetUnit(inches);
            QCOMPARE(combo.itemText(1), text);
            combo.resetUnit(!inches);
            QVERIFY(combo.itemText(1) != text);
            QCOMPARE(combo.itemText(0),
                english ? QStringLiteral("Use object lineweight") : QStringLiteral("使用对象线宽"));
        }
    }
};

QTEST_MAIN(TestKtPsLineWeightComboBox)
#include "tst_ktpslineweightcombobox.moc"
