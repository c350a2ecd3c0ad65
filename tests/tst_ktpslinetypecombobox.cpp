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
    KtPsLineTypeComboBox combo;
    QPixmap pixmap(80, 20);
    pixmap.fill(Qt::transparent);
    combo.createLineType(pixmap, value, 80, 20);
    return pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
}

// The x positions drawn on row @p y of @p image.
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
    void records_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("line type") << qMetaTypeId<LineTypeMap>()
                                   << QByteArray("TORV_PLOT_SPECIALLY_SPCAE::LineTypeMap");
        QTest::newRow("fill") << qMetaTypeId<FillStyleMap>()
                              << QByteArray("TORV_PLOT_SPECIALLY_SPCAE::FillStyleMap");
        QTest::newRow("join") << qMetaTypeId<JoinStyleMap>()
                              << QByteArray("TORV_PLOT_SPECIALLY_SPCAE::JoinStyleMap");
        QTest::newRow("end") << qMetaTypeId<EndPointStyleMap>()
                             << QByteArray("TORV_PLOT_SPECIALLY_SPCAE::EndPointStyleMap");
    }
    void records()
    {
        QFETCH(int, type);
        QFETCH(QByteArray, name);
        QCOMPARE(QByteArray(QMetaType::typeName(type)), name);
        QCOMPARE(QMetaType::type(name.constData()), type);
        const QMetaType::TypeFlags flags = QMetaType::typeFlags(type);
        QVERIFY(flags & QMetaType::NeedsConstruction);
        QVERIFY(flags & QMetaType::NeedsDestruction);
        QVERIFY(!(flags & QMetaType::MovableType));
    }

    void rows()
    {
        KtPsLineTypeComboBox combo;
        QCOMPARE(combo.count(), 32);
        QCOMPARE(combo.iconSize(), QSize(80, 20));
        QCOMPARE(combo.itemText(0), QStringLiteral("使用对象线型"));
        QCOMPARE(combo.itemText(12), QStringLiteral("中划 短划 短划"));
        QCOMPARE(combo.itemText(31), QStringLiteral("ISO 双划 三点"));
        QVERIFY(combo.itemIcon(0).isNull());
        QCOMPARE(combo.getCurrentLineType(0), KtPs::kUseObjectLinetype);
        for (int row = 1; row < 32; ++row) {
            QCOMPARE(int(combo.getCurrentLineType(row)), row - 1);
            QCOMPARE(combo.itemData(row).value<LineTypeMap>().name, combo.itemText(row));
            QCOMPARE(iconImage(combo, row, QSize(80, 20)), pattern(row - 1));
        }
        for (int row : {32, -1, 1000})
            QCOMPARE(int(combo.getCurrentLineType(row)), 0);
        combo.setItemData(5, QStringLiteral("not a record"));
        QCOMPARE(int(combo.getCurrentLineType(5)), 0);
    }

    void namesFixedAtLoad()
    {
        // The table was built when the library loaded, before any language service.
        EnglishTexts english;
        QVERIFY(english.registered());
        KtPsLineTypeComboBox combo;
        QCOMPARE(combo.itemText(1), QStringLiteral("实心"));
        QCOMPARE(g_global_LineTypeName[3].name, QStringLiteral("点"));
    }

    void pictures()
    {
        // Dotted: ceil(80 / 3) = 27 dots on y = 10, in the painter's default black.
        QList<int> dots;
        for (int x = 0; x <= 78; x += 3)
            dots << x;
        const QImage dotted = pattern(2);
        QCOMPARE(drawnOnRow(dotted, 10), dots);
        QCOMPARE(dotted.pixel(0, 10), qRgba(0, 0, 0, 255));
        for (int y : {0, 9, 11, 19})
            QVERIFY(drawnOnRow(dotted, y).isEmpty());

        QCOMPARE(drawnOnRow(pattern(0), 10).size(), 80);
        // Four dashes per 56-pixel period; the second period runs off the right edge.
        const QList<int> xs = drawnOnRow(pattern(11), 10);
        for (int x : {0, 16, 18, 26, 28, 36, 38, 54, 56, 72, 74, 79})
            QVERIFY2(xs.contains(x), qPrintable(QString::number(x)));
        for (int x : {17, 27, 37, 55, 73})
            QVERIFY2(!xs.contains(x), qPrintable(QString::number(x)));

        for (int value : {31, 32, -1, int(0x80000000)})
            QVERIFY(isTransparent(pattern(value)));
    }

    void sharedPictures_data()
    {
        QTest::addColumn<int>("a");
        QTest::addColumn<int>("b");
        QTest::addColumn<bool>("same");
        // clang-format off
        for (int b : {5, 7, 17}) QTest::addRow("1 = %d", b) << 1 << b << true;
        for (int b : {8, 9}) QTest::addRow("6 = %d", b) << 6 << b << true;
        const int iso[][2] = {{19, 14}, {20, 13}, {22, 2}, {23, 12}, {24, 11}, {25, 3}};
        for (const auto& p : iso) QTest::addRow("%d = %d", p[0], p[1]) << p[0] << p[1] << true;
        QTest::newRow("1 != 4") << 1 << 4 << false;
        QTest::newRow("16 != 2") << 16 << 2 << false;
        QTest::newRow("18 != 1") << 18 << 1 << false;
        QTest::newRow("26 != 28") << 26 << 28 << false;
        // clang-format on
    }
    void sharedPictures()
    {
        QFETCH(int, a);
        QFETCH(int, b);
        QFETCH(bool, same);
        QCOMPARE(pattern(a) == pattern(b), same);
    }

    void selectByValue_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("row");
        // clang-format off
        QTest::newRow("use object is row 0") << 31 << 0;
        QTest::newRow("solid is row 1") << 0 << 1;
        QTest::newRow("last") << 30 << 31;
        QTest::newRow("unknown keeps row 7") << 45 << 7;
        QTest::newRow("negative keeps row 7") << -1 << 7;
        // clang-format on
    }
    void selectByValue()
    {
        QFETCH(int, type);
        QFETCH(int, row);
        KtPsLineTypeComboBox combo;
        combo.setCurrentIndex(7);
        QSignalSpy index(&combo, QOverload<int>::of(&QComboBox::currentIndexChanged));
        QSignalSpy activated(&combo, QOverload<int>::of(&QComboBox::activated));
        combo.setCurrentLineTypeIndex(KtPs::LineType(type));
        QCOMPARE(combo.currentIndex(), row);
        QCOMPARE(index.count() + activated.count(), 0);
        QVERIFY(!combo.signalsBlocked());
    }
};

QTEST_MAIN(TestKtPsLineTypeComboBox)
#include "tst_ktpslinetypecombobox.moc"
