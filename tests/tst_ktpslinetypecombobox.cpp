// Tests of KtPsLineTypeComboBox and the plot-style item records: rows and
// values, the drawn dash patterns, silent selection by value.

#include "plotstyletestsupport.h"

#include <KtPlotStyleWidgets>
#include <QSignalSpy>
#include <QtTest>

using namespace TORV_PLOT_SPECIALLY_SPCAE;

namespace {

// The picture createLineType() draws for @p value on a fresh 80 x 20 pixmap.
QImage pattern(int value)
{
    QPixmap pixmap(80, 20);
    pixmap.fill(Qt::transparent);
    KtPsLineTypeComboBox().createLineType(pixmap, value, 80, 20);
    return pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
}

QList<int> drawnOnRow(const QImage& image, int y)
{
    QList<int> xs;
    for (int x = 0; x < image.width(); ++x)
        if (qAlpha(image.pixel(x, y)))
            xs << x;
    return xs;
}

} // namespace

class TestKtPsLineTypeComboBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rows()
    {
        KtPsLineTypeComboBox combo;
        QVERIFY(combo.count() == 32 && combo.itemIcon(0).isNull());
        QCOMPARE(combo.getCurrentLineType(0), KtPs::kUseObjectLinetype);
        for (int row = 1; row < 32; ++row) {
            QCOMPARE(int(combo.getCurrentLineType(row)), row - 1);
            QCOMPARE(iconImage(combo, row, QSize(80, 20)), pattern(row - 1));
        }
        // Selection by value is silent. Use object (31) is row 0; unknown and negative values keep row 7.
        QSignalSpy index(&combo, QOverload<int>::of(&QComboBox::currentIndexChanged));
        for (const auto& [type, row] :
            {std::pair(31, 0), std::pair(30, 31), std::pair(45, 7), std::pair(-1, 7)}) {
            combo.QComboBox::setCurrentIndex(7);
            index.clear();
            combo.setCurrentLineTypeIndex(KtPs::LineType(type));
            QVERIFY2(combo.currentIndex() == row && index.isEmpty(), qPrintable(QString::number(type)));
        }
        QVERIFY(!combo.signalsBlocked());
        combo.setItemData(5, QStringLiteral("not a record"));
        for (int row : {32, -1, 5})
            QCOMPARE(int(combo.getCurrentLineType(row)), 0);

        // The names were fixed when the library loaded, before any language service.
        EnglishTexts english;
        QVERIFY(english.registered);
        QCOMPARE(KtPsLineTypeComboBox().itemText(1), QStringLiteral("实心"));
    }

    void pictures()
    {
        // Dotted: ceil(80 / 3) = 27 dots on y = 10, in the painter's default black.
        const QImage dotted = pattern(2);
        const QList<int> dots = drawnOnRow(dotted, 10);
        QVERIFY(dots.size() == 27 && dots.at(1) == 3 && dots.last() == 78);
        QCOMPARE(dotted.pixel(0, 10), qRgba(0, 0, 0, 255));
        QVERIFY(drawnOnRow(dotted, 9).isEmpty() && drawnOnRow(dotted, 11).isEmpty());
        QCOMPARE(drawnOnRow(pattern(0), 10).size(), 80);
        // Four dashes per 56-pixel period; the second period runs off the right edge.
        const QList<int> xs = drawnOnRow(pattern(11), 10);
        for (int x : {0, 16, 18, 26, 28, 36, 38, 54, 56, 72, 74, 79})
            QVERIFY2(xs.contains(x), qPrintable(QString::number(x)));
        for (int x : {17, 27, 37, 55, 73})
            QVERIFY2(!xs.contains(x), qPrintable(QString::number(x)));
        QImage blank(80, 20, QImage::Format_ARGB32);
        blank.fill(Qt::transparent);
        for (int value : {31, 32, -1, int(0x80000000)})
            QCOMPARE(pattern(value), blank);

        // Look-alike line types share a picture; the others differ. {a, b, same}
        const int pairs[][3]
            = {{1, 5, 1}, {1, 7, 1}, {1, 17, 1}, {6, 8, 1}, {6, 9, 1}, {19, 14, 1}, {20, 13, 1}, {22, 2, 1},
                {23, 12, 1}, {24, 11, 1}, {25, 3, 1}, {1, 4, 0}, {16, 2, 0}, {18, 1, 0}, {26, 28, 0}};
        for (const auto& p : pairs)
            QVERIFY2((pattern(p[0]) == pattern(p[1])) == bool(p[2]),
                qPrintable(QStringLiteral("%1 %2").arg(p[0]).arg(p[1])));
    }
};

QTEST_MAIN(TestKtPsLineTypeComboBox)
#include "tst_ktpslinetypecombobox.moc"
