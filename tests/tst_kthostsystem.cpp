#include <CJxServiceDictionary>
#include <CJxSystem>
#include <KtQtBlockSignalUtil>
#include <KtUiCatalogueLanguageSvr>

#include "ktheap.h"
#include "ktutimagepath.h"

#include <QPixmap>
#include <QTemporaryDir>
#include <QtTest>

class TstShape : public CJxRxObject
{
    KT_DECLARE_RX_MEMBERS(TstShape)
};
KT_DEFINE_RX_MEMBERS(TstShape, CJxRxObject)

class TestKtHostSystem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        ktutSetImageDirectory(QString());
        qunsetenv("KT_IMAGE_DIR");
    }

    void serviceDictionary()
    {
        CJxServiceDictionary dict;
        TstShape one, two;
        const KtString svc(L"svc");
        QVERIFY(dict.registerService(svc, &one) && !dict.registerService(svc, &two));
        QVERIFY(!dict.registerService(KtString(), &two) && !dict.registerService(KtString(L"n"), nullptr));
        QVERIFY(!dict.registerService(3, nullptr) && dict.registerService(3, &one));
        QVERIFY(!dict.registerService(3, &two) && dict.registerService(-3, &two));
        QVERIFY(dict.getService(svc) == &one && dict.getService(-3) == &two);
        QVERIFY(!dict.getService(KtString(L"SVC")) && !dict.hasService(KtString(L"n")));
        QVERIFY(!dict.hasService(4) && dict.unregisterService(svc) && !dict.unregisterService(svc));
        QVERIFY(dict.registerService(svc, &two) && dict.unregisterService(-3) && !dict.unregisterService(-3));
        QVERIFY(dict.registerService(KtString(L"other"), &one));
        QCOMPARE(dict.unregisterService(&one), 2); // "other" and number 3
        QVERIFY(!dict.hasService(3) && dict.getService(svc) == &two);
    }

    void castsAndHeap()
    {
        // Casts of the right and the wrong class, checked or not, and objects deleted through a base
        // class are what the library's language look-ups, PDF services and drawing blocks meet.
        const long long base = ktHeapLiveBlocks();
        void *a = ktHeapAlloc(0), *b = ktHeapAlloc(0); // unique blocks even for size 0
        auto* shapes = new TstShape[2];
        QVERIFY(a && b && a != b);
        QCOMPARE(ktHeapLiveBlocks(), base + 3);
        QVERIFY(!KtUiLanguageSvr::cast(shapes) && !ktRxCheckedCast<TstShape>(nullptr));
        for (void* block : {static_cast<void*>(nullptr), a, b})
            ktHeapFree(block);
        delete[] shapes;
        QCOMPARE(ktHeapLiveBlocks(), base);
    }

    void signalBlocker()
    {
        QObject object;
        QSignalSpy spy(&object, &QObject::objectNameChanged);
        for (bool blocked : {false, true}) {
            object.blockSignals(blocked);
            {
                KtQtBlockSignalUtil outer(&object);
                KtQtBlockSignalUtil{&object}; // nested: must restore the outer one's state
                object.setObjectName(QString::number(blocked));
            }
            QCOMPARE(object.signalsBlocked(), blocked);
        }
        QCOMPARE(spy.count(), 0);
        auto* doomed = new QObject;
        KtQtBlockSignalUtil none(nullptr), blocker(doomed);
        delete doomed; // the blocker outlives its object
    }

    void catalogueLanguageService()
    {
        QScopedPointer<KtUiCatalogueLanguageSvr> svr(new KtUiCatalogueLanguageSvr);
        const auto text
            = [&](const wchar_t* key) { return QString::fromUtf8(svr->getText(key, L"d").utf8Ptr()); };
        svr->insert(QStringLiteral("PRE"), QStringLiteral("pre"));
        for (const char* bad : {R"({"K1":"One")", R"([{"K1":"One"}])", R"({"K1":"One"} x)"})
            QVERIFY2(!svr->loadFromData(bad), bad);
        QCOMPARE(svr->count(), 1);
        QVERIFY(svr->loadFromData(R"({"language":"de","texts":{"K1":"Eins","K2":"中文","N":[2]}})"));
        QVERIFY(svr->loadFromData(R"({"PRE":"new","K1":"","N":5,"B":true,"O":{},"Z":null})"));
        QCOMPARE(svr->language(), QStringLiteral("de")); // a plain catalogue leaves it
        QCOMPARE(svr->count(), 3);
        QVERIFY(text(L"PRE") == "new" && text(L"K1").isEmpty() && text(L"K2") == "中文");
        for (const wchar_t* key : {L"N", L"B", L"O", L"Z", L"language", L"texts", L"k1", L""})
            QCOMPARE(text(key), QStringLiteral("d"));
        QCOMPARE(text(nullptr), QStringLiteral("d"));
        QVERIFY(!svr->loadBuiltIn(QStringLiteral("../x")) && !svr->loadBuiltIn(QStringLiteral("zz")));
        QVERIFY(svr->loadBuiltIn(QStringLiteral("en")) && svr->language() == QStringLiteral("en"));
        QVERIFY(text(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_0") == "Solid" && text(L"K2") == "中文"); // merged

        CJxServiceDictionary* dict = CJxSystem::instance()->getServiceDictionary();
        const KtString name(KT_UI_LANGUAGE_SERVICE_NAME);
        KtUiCatalogueLanguageSvr other;
        QVERIFY(svr->registerWithHost() && !svr->registerWithHost() && !other.registerWithHost());
        other.unregisterFromHost(); // not the registered one: no effect
        QVERIFY(dict->registerService(4711, svr.data()) && dict->getService(name) == svr.data());
        svr.reset(); // unregisters itself under every name and number
        QVERIFY(!dict->hasService(name) && !dict->hasService(4711) && other.registerWithHost());
        other.unregisterFromHost();
        QVERIFY(!dict->hasService(name));
    }

    void imagePath_data()
    {
        // Directories in a temporary one: "app" and "env" have the image, "bare" a directory by its name.
        // The embedded images alone, and an image that is nowhere, are what the library tests meet.
        QTest::addColumn<QString>("setter");
        QTest::addColumn<bool>("allowOverride");
        QTest::addColumn<QString>("env");
        QTest::addColumn<QSize>("size"); // of the image found
        const QSize embedded(26, 130), app(26, 65), env(48, 64);
        QTest::newRow("setter first") << "app" << true << "env" << app;
        QTest::newRow("setter lacks it") << "bare" << true << "env" << env;
        QTest::newRow("neither has it") << "bare" << true << "bare" << embedded;
        QTest::newRow("not allowed") << "app" << false << "env" << embedded;
    }
    void imagePath()
    {
        QFETCH(QString, setter);
        QFETCH(bool, allowOverride);
        QFETCH(QString, env);
        QFETCH(QSize, size);
        const QString fill = QStringLiteral("plot/plotstyle_fillstyle.bmp"), images = ":/kthost/images/";
        QTemporaryDir tmp;
        const QDir dir(tmp.path());
        QVERIFY(dir.mkpath("app/plot") && dir.mkpath("env/plot") && dir.mkpath("bare/" + fill));
        QVERIFY(QFile::copy(images + "plot/plotstyle_connectstyle.bmp", dir.filePath("app/" + fill)));
        QVERIFY(QFile::copy(images + "common/empty.bmp", dir.filePath("env/" + fill)));
        QVERIFY(QFile::copy(images + "common/empty.bmp", dir.filePath("outside.bmp")));
        ktutSetImageDirectory(dir.filePath(setter));
        qputenv("KT_IMAGE_DIR", QFile::encodeName(dir.filePath(env)));
        QCOMPARE(QPixmap(ktutGetImageFullPath(fill, allowOverride)).size(), size);
        const QString connect = QStringLiteral("common\\..\\plot/./plotstyle_connectstyle.bmp"); // normalised
        QCOMPARE(QPixmap(ktutGetImageFullPath(connect, allowOverride)).size(), QSize(26, 65));
        const QString bads[]
            = {"../outside.bmp", dir.filePath("outside.bmp"), "plot/../../images/common/empty.bmp", "plot",
                "", "plot/nothing.bmp", images + "common/empty.bmp"};
        for (const QString& bad : bads)
            QVERIFY2(!QFile::exists(ktutGetImageFullPath(bad, allowOverride)), qPrintable(bad));
    }
};

QTEST_MAIN(TestKtHostSystem)
#include "tst_kthostsystem.moc"
