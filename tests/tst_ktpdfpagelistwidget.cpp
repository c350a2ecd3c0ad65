// Tests of KtPdfPageListWidget on real PDFs (written here with QPdfWriter),
// broken files, a raster document and made-up documents of the host service.

#include "fakeunderlay.h"

#include <CJxServiceDictionary>
#include <CJxSystem>
#include <KtPdfPageListWidget>
#include <KtUiMessageBox>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

namespace {

// A PDF of @p pages blank pages of A4, every third one in landscape.
QString writePdf(const QString& path, int pages)
{
    QPdfWriter writer(path);
    QPainter painter(&writer);
    for (int i = 1; i < pages; ++i) {
        writer.setPageOrientation(i % 3 == 2 ? QPageLayout::Landscape : QPageLayout::Portrait);
        writer.newPage();
    }
    return path;
}

// Answers every message box and remembers the texts.
struct MessageBoxes
{
    QStringList texts;
    KtUiMessageBoxHandler previous
        = ktuiSetMessageBoxHandler([this](const QString& a, const QString& b, int flags, QWidget* parent) {
              texts << a << b << QString::number(flags) << QString::number(parent != nullptr);
              return 0;
          });
    ~MessageBoxes() { ktuiSetMessageBoxHandler(previous); }
};

// Puts @p service in place of the host's service 423 while alive.
struct Service423
{
    CJxServiceDictionary* services = CJxSystem::instance()->getServiceDictionary();
    CJxRxObject* original = services->getService(KtDbRasterDocumentServiceId);
    explicit Service423(CJxRxObject* service) { put(service); }
    ~Service423() { put(original); }
    void put(CJxRxObject* service)
    {
        services->unregisterService(KtDbRasterDocumentServiceId);
        if (service)
            services->registerService(KtDbRasterDocumentServiceId, service);
    }
};

struct FakeService : KtDbUnderlayDocumentService
{
    FakeDocument document{4, {1}};
    KtDbUnderlayFile* openDocument(const KtString&) override { return &document; }
};

QStringList texts(const QListWidget& list)
{
    QStringList result;
    for (int row = 0; row < list.count(); ++row)
        result << list.item(row)->text() + "#" + list.item(row)->data(Qt::UserRole).toString();
    return result;
}

} // namespace

class TestKtPdfPageListWidget : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    QString m_three, m_many;

private Q_SLOTS:
    void initTestCase()
    {
        m_three = writePdf(m_dir.filePath("three.pdf"), 3);
        m_many = writePdf(m_dir.filePath("many.pdf"), 200);
    }

    void placeholdersThenImages()
    {
        KtPdfPageListWidget list;
        QSignalSpy finished(&list, &KtPdfPageListWidget::hasFinishedPreview);
        QVERIFY(list.setInfo(m_three) == 3 && list.currentRow() == 0);
        QCOMPARE(texts(list), QStringList({"1#0", "2#1", "3#2"}));
        QVERIFY(finished.wait(20000));
        QTest::qWait(50);
        QCOMPARE(finished.count(), 1);
        for (int page = 0; page < 3; ++page) {
            const QPixmap image = list.getSelectItemIcon(page);
            // Fitted into 82 x 102 with the page's aspect ratio: portrait A4, landscape for page 3.
            QVERIFY2(image.width() <= 82 && image.height() <= 102, qPrintable(QString::number(page)));
            QCOMPARE(image.width() > image.height(), page == 2);
            QCOMPARE(list.getSelectItemIndex(list.item(page)), page);
        }
        QCOMPARE(list.getSelectItemIndex(nullptr), -1);

        // The first image for a page wins; an image for a row that is not there is dropped.
        QPixmap red(10, 10);
        red.fill(Qt::red);
        list.setPageIcon(red, 1);
        QVERIFY(list.getSelectItemIcon(1).toImage() != red.toImage());
        list.setPageIcon(red, 7);
        QVERIFY(list.getSelectItemIcon(7).isNull());

        // A click on empty space changes nothing; a drag from an item over the others selects nothing more.
        list.resize(400, 400);
        list.show();
        QVERIFY(QTest::qWaitForWindowExposed(&list));
        QWidget* viewport = list.viewport();
        const auto centre = [&](int row) { return list.visualItemRect(list.item(row)).center(); };
        QTest::mouseClick(viewport, Qt::LeftButton, {}, centre(1));
        QTest::mouseClick(viewport, Qt::LeftButton, {}, QPoint(395, 395)); // empty space
        QVERIFY(list.currentRow() == 1 && list.selectedItems().size() == 1);
        QTest::mousePress(viewport, Qt::LeftButton, {}, centre(0));
        QMouseEvent move(QEvent::MouseMove, centre(2), Qt::LeftButton, Qt::LeftButton, {});
        QApplication::sendEvent(viewport, &move);
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, centre(2));
        QCOMPARE(list.selectedItems().size(), 1);

        // An empty document is no error: no message, no rows, no thread.
        MessageBoxes boxes;
        finished.clear();
        QCOMPARE(list.setInfo(QFINDTESTDATA("data/zero-pages.pdf")), 0);
        QVERIFY(list.count() == 0 && boxes.texts.isEmpty());
        QVERIFY(!finished.wait(300));

        // Stopped and started again while rendering, and while icons change size.
        QCOMPARE(list.setInfo(m_many), 200);
        list.switchPicture(false); // while images arrive
        list.switchPicture(true);
        QCOMPARE(list.setInfo(m_three), 3); // stops the first preview, then starts again
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 2, 20000);
        QCOMPARE(texts(list), QStringList({"1#0", "2#1", "3#2"}));
        for (int page = 0; page < 3; ++page)
            QVERIFY(!list.getSelectItemIcon(page).isNull());

        QCOMPARE(list.setInfo(m_many), 200);
        list.stopPreview();
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 3, 20000);
        QVERIFY(list.getSelectItemIcon(199).isNull()); // stopped long before the last page...
        list.setPageIcon(QPixmap(8, 8), 199); // ... which counts as arrived now, empty
        QVERIFY(list.getSelectItemIcon(199).isNull());

        // Destroyed while rendering: the loader is stopped and waited for.
        auto* doomed = new KtPdfPageListWidget;
        doomed->setInfo(m_many);
        QTest::qWait(20);
        delete doomed;

        // A raster document of service 423, one page per frame.
        list.setType(1);
        QCOMPARE(list.setInfo(QFINDTESTDATA("data/three-frames.gif")), 3);
        QVERIFY(finished.wait(20000));
        const QColor colours[] = {Qt::red, Qt::green, Qt::blue};
        for (int page = 0; page < 3; ++page)
            QCOMPARE(list.getSelectItemIcon(page).toImage().pixelColor(2, 2), colours[page]);

        // A page whose item cannot be had gets no row; later rows keep their page index.
        FakeService fake;
        Service423 replaced(&fake);
        QCOMPARE(list.setInfo("any"), 4);
        QVERIFY(finished.wait(20000));
        QTest::qWait(50);
        // Images go to the row of their page index: page 1's (empty) image lands on
        // page 2's row, page 2's on page 3's, and page 3's finds no row.
        QCOMPARE(texts(list), QStringList({"1#0", "2#2", "3#3"}));
    }

    void filesThatCannotBeOpened_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("type"); // 0: a PDF; 1, 2: a document of service 423 (none, the wrong class)
        // Files Poppler cannot read all take one way; a locked one another.
        QTest::newRow("missing") << "missing.pdf" << 0;
        QTest::newRow("password") << "locked.pdf" << 0;
        QTest::newRow("no service 423") << "" << 1;
        QTest::newRow("service 423 of another class") << "" << 2;
    }
    void filesThatCannotBeOpened()
    {
        QFETCH(QString, file);
        QFETCH(int, type);
        if (file == "locked.pdf") {
            const QString qpdf = QStandardPaths::findExecutable("qpdf");
            if (qpdf.isEmpty())
                QSKIP("qpdf is needed to make a PDF with a password");
            QCOMPARE(QProcess::execute(
                         qpdf, {"--encrypt", "user", "owner", "256", "--", m_three, m_dir.filePath(file)}),
                0);
        }
        FakeDocument other(0); // a host object, but no document service
        std::unique_ptr<Service423> service(type ? new Service423(type == 2 ? &other : nullptr) : nullptr);

        KtPdfPageListWidget list;
        QCOMPARE(list.setInfo(m_three), 3);
        list.stopPreview();
        MessageBoxes boxes;
        list.setType(type ? 5 : 0);
        QCOMPARE(list.setInfo(m_dir.filePath(file)), 0);
        // One box, no flags, no parent.
        QVERIFY(boxes.texts.size() == 4 && boxes.texts.at(0) == QStringLiteral("无法打开此文件。"));
        QCOMPARE(boxes.texts.mid(2), QStringList({"0", "0"}));
        QCOMPARE(texts(list), QStringList({"1#0", "2#1", "3#2"})); // the old list stays
    }
};

QTEST_MAIN(TestKtPdfPageListWidget)
#include "tst_ktpdfpagelistwidget.moc"
