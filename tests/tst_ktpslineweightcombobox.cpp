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
    void rows()
    {
        KtPsLineWeightComboBox combo;
        QCOMPARE(combo.count(), 0);
        QCOMPARE(combo.iconSize(), QSize(80, 25));
        QVector<double> empty;
        combo.setLineWeightList(empty);
        QCOMPARE(combo.count(), 1);
        QCOMPARE(combo.itemText(0), QStringLiteral("使用对象线宽"));
        QCOMPARE(combo.itemData(0), QVariant(0));
        QVERIFY(combo.itemIcon(0).isNull());

        QVector<double> weights = {0.25, 0.09, 2.11};
        combo.setLineWeightList(weights);
        QCOMPARE(combo.getLineWeightList(), weights);
        QCOMPARE(combo.count(), 4);
        // The data is the 1-based position, not the weight.
        for (int row = 0; row < 4; ++row) {
            QCOMPARE(combo.itemData(row), QVariant(row));
            QCOMPARE(combo.getLineWeight(row), double(row));
        }
        QCOMPARE(combo.getLineWeight(4), 0.0);
        QCOMPARE(combo.getLineWeight(-1), 0.0);
    }

    void texts_data()
    {
        QTest::addColumn<double>("weight");
        QTest::addColumn<bool>("inches");
        QTest::addColumn<bool>("english");
        QTest::addColumn<QString>("text");
        // clang-format off
        QTest::newRow("mm") << 0.25 << false << false << "0.2500 毫米";
        QTest::newRow("in") << 0.25 << true << false << "0.0098 英寸";
        QTest::newRow("largest in") << 2.11 << true << false << "0.0831 英寸";
        QTest::newRow("zero mm") << 0.0 << false << false << "0.0000 毫米";
        QTest::newRow("english mm") << 0.5 << false << true << "0.5000 mm";
        QTest::newRow("english in") << 2.0 << true << true << "0.0787 in";
        // clang-format on
    }
    void texts()
    {
        QFETCH(double, weight);
        QFETCH(bool, inches);
        QFETCH(bool, english);
        QFETCH(QString, text);
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

    void penWidth_data()
    {
        QTest::addColumn<double>("weight");
        QTest::addColumn<int>("pixels");
        // clang-format off
        QTest::newRow("0.00") << 0.00 << 1;
        QTest::newRow("0.25") << 0.25 << 3;
        QTest::newRow("0.30") << 0.30 << 4;
        QTest::newRow("1.00") << 1.00 << 11;
        QTest::newRow("2.11") << 2.11 << 22;
        // clang-format on
    }
    void penWidth()
    {
        QFETCH(double, weight);
        QFETCH(int, pixels);
        KtPsLineWeightComboBox combo;
        QVector<double> weights = {weight};
        combo.setLineWeightList(weights);
        const QImage picture = iconImage(combo, 1, QSize(80, 25));
        QCOMPARE(picture.size(), QSize(80, 25));
        int drawn = 0;
        for (int y = 0; y < picture.height(); ++y)
            drawn += qAlpha(picture.pixel(40, y)) ? 1 : 0;
        QCOMPARE(drawn, pixels);
        QVERIFY(
            qAlpha(picture.pixel(40, 12)) && qAlpha(picture.pixel(0, 12)) && qAlpha(picture.pixel(79, 12)));
    }

    void rebuildSignals()
    {
        KtPsLineWeightComboBox combo;
        QVector<double> weights = {0.1, 0.2, 0.3};
        combo.setLineWeightList(weights);
        combo.setCurrentIndex(3);
        QSignalSpy index(&combo, QOverload<int>::of(&QComboBox::currentIndexChanged));
        // Rebuilding the same list is a rebuild all the same, and Qt reports it.
        QVector<double> same = combo.getLineWeightList();
        combo.setLineWeightList(same);
        QCOMPARE(combo.currentIndex(), 0);
        QVERIFY(index.count() >= 1);
        index.clear();
        combo.resetUnit(true);
        QVERIFY(index.count() >= 1);
    }

    void selectByPosition_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<int>("row");
        // clang-format off
        QTest::newRow("row 0") << 0 << 0;
        QTest::newRow("position 2") << 2 << 2;
        QTest::newRow("n + 1 keeps row 1") << 4 << 1;
        QTest::newRow("negative keeps row 1") << -1 << 1;
        // clang-format on
    }
    void selectByPosition()
    {
        QFETCH(int, position);
        QFETCH(int, row);
        KtPsLineWeightComboBox combo;
        QVector<double> weights = {0.1, 0.2, 0.3};
        combo.setLineWeightList(weights);
        combo.setCurrentIndex(1);
        QSignalSpy index(&combo, QOverload<int>::of(&QComboBox::currentIndexChanged));
        combo.setCurrentLineWeight(position);
        QCOMPARE(combo.currentIndex(), row);
        QCOMPARE(index.count(), 0);
    }

    void hostileWeights()
    {
        KtPsLineWeightComboBox combo;
        QVector<double> weights = {-3.0, 1e300, std::numeric_limits<double>::quiet_NaN()};
        combo.setLineWeightList(weights);
        QCOMPARE(combo.count(), 4);
        QCOMPARE(combo.itemText(1), QStringLiteral("-3.0000 毫米"));
    }
};

QTEST_MAIN(TestKtPsLineWeightComboBox)
#include "tst_ktpslineweightcombobox.moc"
