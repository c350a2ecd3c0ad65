// Tests of CKtToolBar: buttons from icons, image files and bitmap
// strips, the queries by index, sizing and docking along the parent's edges.

#include <CKtToolBar>

#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

const QColor kLightGrey(192, 192, 192);

QColor stripColor(int x)
{
    return QColor(x, 40, 255 - x);
}

QIcon marker()
{
    QPixmap pixmap(16, 15);
    pixmap.fill(Qt::black);
    return QIcon(pixmap);
}

} // namespace

class TestCKtToolBar : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    std::unique_ptr<CKtToolBar> m_bar;

    // A BMP strip of @p width x 15 pixels: a colour per column below a light-grey top row.
    QString writeStrip(int width)
    {
        QImage image(width, 15, QImage::Format_RGB32);
        for (int x = 0; x < width; ++x)
            for (int y = 0; y < 15; ++y)
                image.setPixelColor(x, y, y ? stripColor(x) : kLightGrey);
        const QString path = m_dir.filePath(QString("strip%1.bmp").arg(width));
        return image.save(path, "BMP") ? path : QString();
    }

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_dir.isValid()); }
    void init() { m_bar = std::make_unique<CKtToolBar>(nullptr); }
    void cleanup() { m_bar.reset(); }

    void addAndLoadButtons()
    {
        // AddButton makes a new button, never adding the caller's action; without an
        // action 0 comes back, yet the button is there. Files that do not load add nothing.
        const QString file = writeStrip(16), missing = m_dir.filePath("none.bmp");
        const std::wstring wide = file.toStdWString();
        QAction own("own");
        QCOMPARE(m_bar->AddButton(marker(), &own), 1);
        QCOMPARE(m_bar->AddButton(marker(), nullptr), 0);
        QCOMPARE(m_bar->AddButton(file, &own), 1);
        QCOMPARE(m_bar->AddButton(wide.c_str(), &own), 1);
        QCOMPARE(m_bar->AddButton(missing, &own), 0);
        QCOMPARE(m_bar->AddButton(static_cast<const wchar_t*>(nullptr), &own), 0);
        QCOMPARE(m_bar->GetButtonCount(), 4);
        QVERIFY(!m_bar->actions().contains(&own));
        // File icons keep their light grey: the mask never reaches them.
        QCOMPARE(m_bar->LoadIcon(file).pixmap(16, 15).toImage().pixelColor(8, 0), kLightGrey);
        QVERIFY(m_bar->LoadIcon(missing).isNull());

        CKtToolBar fromActions;
        QAction a("a"), b("b"), separator;
        separator.setSeparator(true);
        QCOMPARE(fromActions.LoadToolBar(QList<QAction*>{}, 1), 0);
        QCOMPARE(fromActions.LoadToolBar({&a, nullptr, &separator}, 0), 1);
        QCOMPARE(fromActions.LoadToolBar({&b, &separator}, 1), 1);
        QVERIFY(!a.isCheckable() && b.isCheckable() && !separator.isCheckable());
        QCOMPARE(fromActions.actions(), (QList<QAction*>{&a, &b, &separator}));

        // From files: the ones that do not load are dropped, the others are checkable.
        CKtToolBar fromFiles;
        QCOMPARE(fromFiles.LoadToolBar(QStringList{}), 0);
        QCOMPARE(fromFiles.LoadToolBar(QStringList{missing}), 1);
        QCOMPARE(fromFiles.LoadToolBar(QStringList{file, missing, file}), 1);
        QCOMPARE(fromFiles.GetButtonCount(), 2);
        for (QAction* button : fromFiles.GetListActions())
            QVERIFY(button->isCheckable() && !button->parent());
    }

    void loadBitmap_data()
    {
        QTest::addColumn<int>("stripWidth");
        QTest::addColumn<int>("hidden"); // index of a hidden button, or -1
        QTest::addColumn<int>("result");
        QTest::addColumn<int>("sliceWidth");
        QTest::addColumn<QList<int>>("slices"); // per button: the slice it shows, or -1

        // clang-format off
        QTest::newRow("160 wide, 12 buttons") << 160 << -1 << 1 << 16 << QList<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, -1, -1};
        QTest::newRow("40 wide: two slices of 20") << 40 << -1 << 1 << 20 << QList<int>{0, 1, -1};
        QTest::newRow("hidden button takes a slice") << 48 << 1 << 1 << 16 << QList<int>{0, -1, 2, -1};
        QTest::newRow("narrower than an icon") << 15 << -1 << 0 << 0 << QList<int>{-1};
        QTest::newRow("no buttons") << 160 << -1 << 0 << 0 << QList<int>{};
        // clang-format on
    }

    void loadBitmap()
    {
        QFETCH(int, stripWidth);
        QFETCH(int, hidden);
        QFETCH(int, result);
        QFETCH(int, sliceWidth);
        QFETCH(QList<int>, slices);

        m_bar->AddSeparator(nullptr); // separators take no slice
        for (int i = 0; i < slices.size(); ++i)
            m_bar->addAction(marker(), QString());
        if (hidden >= 0)
            m_bar->GetListActions().at(hidden)->setVisible(false);
        QCOMPARE(m_bar->LoadBitmap(writeStrip(stripWidth).toStdWString().c_str()), result);
        QCOMPARE(m_bar->LoadBitmap(nullptr), 0); // no file

        for (int i = 0; i < slices.size(); ++i) {
            const QIcon icon = m_bar->GetListActions().at(i)->icon();
            if (slices[i] < 0) {
                QCOMPARE(icon.pixmap(16, 15).toImage().pixelColor(8, 8), QColor(Qt::black));
                continue;
            }
            QCOMPARE(icon.availableSizes(), QList<QSize>{QSize(sliceWidth, 15)});
            const QImage image = icon.pixmap(sliceWidth, 15).toImage();
            const int left = slices[i] * sliceWidth;
            QCOMPARE(image.pixelColor(0, 1), stripColor(left));
            QCOMPARE(image.pixelColor(sliceWidth - 1, 14), stripColor(left + sliceWidth - 1));
            QCOMPARE(qAlpha(image.pixel(sliceWidth / 2, 0)), 0); // light grey is transparent
        }
    }

    void queriesAndDocking()
    {
        QWidget window;
        auto* bar = new CKtToolBar(&window);
        QCOMPARE(bar->CommandToIndex(nullptr), -1);
        QAction* a = bar->addAction("Open");
        QCOMPARE(bar->AddSeparator(a), 1);
        QAction* b = bar->addAction(marker(), QString());
        QAction* c = bar->addAction("c");
        QAction foreign;
        QCOMPARE(bar->CommandToIndex(b), 1);
        QCOMPARE(bar->CommandToIndex(&foreign), 3); // one past the last button, not -1
        QCOMPARE(bar->GetItemID(2), b); // separators count here
        QVERIFY(bar->GetItemID(1)->isSeparator());
        QCOMPARE(bar->GetItemID(4), nullptr);
        QCOMPARE(bar->GetItemID(-1), nullptr);

        window.resize(400, 300);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const QRect geometry = bar->actionGeometry(c);
        QVERIFY(geometry.isValid());
        tagRECT rect{-9, -9, -9, -9}, untouched = rect;
        bar->GetItemRect(3, &rect);
        QCOMPARE(QRect(QPoint(rect.left, rect.top), QPoint(rect.right, rect.bottom)), geometry); // inclusive
        bar->GetItemRect(4, &untouched);
        bar->GetItemRect(0, nullptr);
        QCOMPARE(untouched.left + untouched.top + untouched.right + untouched.bottom, -36);

        // The icon text is written; text() shows it only where no text was set.
        const QList<int> indices{-1, 0, 1, 3};
        const QStringList readBack{"", "Open", "新", ""};
        for (int i = 0; i < indices.size(); ++i) {
            QCOMPARE(bar->SetButtonText(indices[i], L"新"), int(!readBack[i].isEmpty()));
            QString out("stale");
            bar->GetButtonText(indices[i], out);
            QCOMPARE(out, readBack[i]);
        }
        QCOMPARE(a->iconText(), QString("新"));

        for (int value : {1, 0, 2, -1}) {
            b->setCheckable(true);
            b->setChecked(value != 1);
            b->setEnabled(value != 1);
            QCOMPARE(bar->CheckButton(b, value) + bar->EnableButton(b, value), 2);
            QVERIFY(b->isChecked() == (value == 1) && b->isEnabled() == (value == 1));
        }
        QCOMPARE(bar->CheckButton(nullptr, 1) + bar->EnableButton(nullptr, 1), 0);

        QCOMPARE(bar->DeleteButton(nullptr) + bar->DeleteButton(b), 2);
        QCOMPARE(bar->GetButtonCount(), 2);
        QCOMPARE(b->parent(), static_cast<QObject*>(bar)); // taken off, not deleted

        // Docking: a strip of icon size + 8 along the parent's edge; any other code moves nothing.
        const QRect before(5, 6, 70, 30);
        const std::tuple<unsigned, QRect, Qt::Orientation> cases[]
            = {{CBRS_ALIGN_LEFT, before, Qt::Horizontal}, {CBRS_LEFT, QRect(0, 0, 24, 300), Qt::Vertical},
                {CBRS_TOP, QRect(0, 0, 400, 23), Qt::Horizontal},
                {CBRS_RIGHT, QRect(376, 0, 24, 300), Qt::Vertical},
                {CBRS_BOTTOM, QRect(0, 277, 400, 23), Qt::Horizontal}};
        for (const auto& [code, placed, orientation] : cases) {
            bar->setGeometry(before);
            bar->DockBar(int(code));
            QCOMPARE(bar->geometry(), placed);
            QCOMPARE(bar->orientation(), orientation);
        }

        // Without a parent nothing moves.
        m_bar->setGeometry(before);
        m_bar->DockBar(CBRS_TOP);
        QCOMPARE(m_bar->geometry(), before);
    }

    void updateToolBarSize_data()
    {
        QTest::addColumn<QSize>("icon");
        QTest::addColumn<int>("style");
        QTest::addColumn<QString>("actions"); // "b" a button, "-" a separator
        QTest::addColumn<int>("setWidth");
        QTest::addColumn<QSize>("fixed"); // -1: not fixed

        const int iconOnly = Qt::ToolButtonIconOnly;
        // clang-format off
        QTest::newRow("3 buttons, 1 separator") << QSize(16, 15) << iconOnly << "bb-b" << 1 << QSize(77, 23);
        QTest::newRow("height only") << QSize(16, 15) << iconOnly << "bb-b" << 0 << QSize(-1, 23);
        QTest::newRow("separators, icon 24x20") << QSize(24, 20) << iconOnly << "-b-" << 5 << QSize(46, 28);
        QTest::newRow("text beside icon") << QSize(16, 15) << int(Qt::ToolButtonTextBesideIcon) << "bb-b" << 1 << QSize(-1, -1);
        QTest::newRow("empty") << QSize(16, 15) << iconOnly << "" << 1 << QSize(-1, -1);
        // clang-format on
    }

    void updateToolBarSize()
    {
        QFETCH(QSize, icon);
        QFETCH(int, style);
        QFETCH(QString, actions);
        QFETCH(int, setWidth);
        QFETCH(QSize, fixed);

        m_bar->SetSizes(QSize(99, 99), icon);
        m_bar->SetButtonStyle(Qt::ToolButtonStyle(style));
        for (QChar kind : actions) {
            if (kind == '-')
                m_bar->AddSeparator();
            else
                m_bar->addAction(marker(), QString());
        }
        m_bar->UpdateToolBarSize(setWidth);
        const auto limit = [](int size) { return size < 0 ? QWIDGETSIZE_MAX : size; };
        QCOMPARE(m_bar->maximumSize(), QSize(limit(fixed.width()), limit(fixed.height())));
        QCOMPARE(m_bar->minimumSize(), fixed.expandedTo(QSize(0, 0)));
    }
};

QTEST_MAIN(TestCKtToolBar)
#include "tst_ckttoolbar.moc"
