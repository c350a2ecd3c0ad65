#include <CJxError>
#include <CJxRxObject>
#include <CJxServiceDictionary>
#include <CJxSystem>
#include <KtQtBlockSignalUtil>
#include <KtUiCatalogueLanguageSvr>

#include "ktheap.h"
#include "ktutimagepath.h"

#include <QImage>
#include <QPixmap>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>
#include <vector>

class TstShape : public CJxRxObject
{
    KT_DECLARE_RX_MEMBERS(TstShape)
};
class TstCircle : public TstShape
{
    KT_DECLARE_RX_MEMBERS(TstCircle)
};
class TstOther : public CJxRxObject
{
    KT_DECLARE_RX_MEMBERS(TstOther)
};
KT_DEFINE_RX_MEMBERS(TstShape, CJxRxObject)
KT_DEFINE_RX_MEMBERS(TstCircle, TstShape)
KT_DEFINE_RX_MEMBERS(TstOther, CJxRxObject)

using TextMap = QMap<QString, QString>;
Q_DECLARE_METATYPE(TextMap)

static QString text(const KtUiLanguageSvr& svr, const wchar_t* key, const wchar_t* defaultText)
{
    return QString::fromUtf8(svr.getText(key, defaultText).utf8Ptr());
}

// cast() and ktRxCheckedCast() must agree with isKindOf().
template <class T>
static void verifyCasts(CJxRxObject* object, bool kindOf)
{
    QCOMPARE(T::cast(object) == object, kindOf);
    QCOMPARE(T::cast(static_cast<const CJxRxObject*>(object)) == object, kindOf);
    try {
        QCOMPARE(ktRxCheckedCast<T>(object), object);
        QVERIFY(kindOf);
    } catch (const CJxError& e) {
        QVERIFY(!kindOf);
        QCOMPARE(e.status(), KtError_NotThatKindOfClass);
    }
    QVERIFY(!T::cast(static_cast<CJxRxObject*>(nullptr)) && !ktRxCheckedCast<T>(nullptr));
}

static void writeImage(const QString& path, int side)
{
    QVERIFY(QDir().mkpath(QFileInfo(path).absolutePath()));
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(path, "BMP"));
}

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
        QVERIFY(CJxSystem::instance() && CJxSystem::instance() == CJxSystem::instance());
        QCOMPARE(
            CJxSystem::instance()->getServiceDictionary(), CJxSystem::instance()->getServiceDictionary());
        CJxServiceDictionary dict;
        TstShape one, two;
        const KtString svc(L"svc");
        QVERIFY(dict.registerService(svc, &one) && !dict.registerService(svc, &two));
        QVERIFY(!dict.registerService(KtString(), &two) && !dict.registerService(KtString(L"n"), nullptr));
        QVERIFY(!dict.registerService(3, nullptr) && dict.registerService(3, &one));
        QVERIFY(!dict.registerService(3, &two) && dict.registerService(-3, &two));
        QCOMPARE(dict.getService(svc), &one);
        QCOMPARE(dict.getService(-3), &two);
        QVERIFY(!dict.hasService(KtString(L"n")) && !dict.getService(KtString(L"SVC")));
        QVERIFY(!dict.getService(KtString()) && !dict.hasService(4));
        QVERIFY(dict.unregisterService(svc) && !dict.unregisterService(svc));
        QVERIFY(dict.registerService(svc, &two));
        QVERIFY(dict.unregisterService(-3) && !dict.unregisterService(-3));
        QVERIFY(dict.registerService(KtString(L"other"), &one));
        QCOMPARE(dict.unregisterService(&one), 2); // "other" and number 3
        QCOMPARE(dict.unregisterService(&one), 0);
        QVERIFY(!dict.hasService(3));
        QCOMPARE(dict.getService(svc), &two);
    }

    void runTimeClasses_data()
    {
        QTest::addColumn<int>("object"); // 0 shape, 1 circle, 2 other
        QTest::addColumn<bool>("isShape");
        QTest::addColumn<bool>("isCircle");
        QTest::addColumn<bool>("isOther");
        QTest::newRow("shape") << 0 << true << false << false;
        QTest::newRow("circle") << 1 << true << true << false;
        QTest::newRow("other") << 2 << false << false << true;
    }
    void runTimeClasses()
    {
        QFETCH(int, object);
        QFETCH(bool, isShape);
        QFETCH(bool, isCircle);
        QFETCH(bool, isOther);
        std::unique_ptr<CJxRxObject> obj(object == 0 ? new TstShape
                : object == 1                        ? static_cast<CJxRxObject*>(new TstCircle)
                                                     : new TstOther);
        QCOMPARE(obj->isKindOf(TstShape::desc()), isShape);
        QCOMPARE(obj->isKindOf(TstCircle::desc()), isCircle);
        QCOMPARE(obj->isKindOf(TstOther::desc()), isOther);
        QVERIFY(obj->isKindOf(CJxRxObject::desc()) && !obj->isKindOf(nullptr));
        QCOMPARE(obj->isA()->parent(), object == 1 ? TstShape::desc() : CJxRxObject::desc());
        verifyCasts<TstShape>(obj.get(), isShape);
        verifyCasts<TstCircle>(obj.get(), isCircle);
        verifyCasts<TstOther>(obj.get(), isOther);
    }

    void hostHeap()
    {
        const long long base = ktHeapLiveBlocks();
        void* a = ktHeapAlloc(0);
        void* b = CJxSystem::instance()->heapAlloc(0);
        QVERIFY(a && b && a != b);
        QCOMPARE(ktHeapLiveBlocks(), base + 2);
        ktHeapFree(nullptr);
        CJxSystem::instance()->heapFree(a);
        ktHeapFree(b);
        QCOMPARE(ktHeapLiveBlocks(), base);
        CJxRxObject* circle = new TstCircle;
        auto* array = new TstShape[4];
        QCOMPARE(ktHeapLiveBlocks(), base + 2);
        delete circle; // through the base class
        delete[] array;
        QCOMPARE(ktHeapLiveBlocks(), base);
    }

    void signalBlocker_data()
    {
        QTest::addColumn<bool>("initiallyBlocked");
        QTest::addColumn<int>("depth");
        QTest::newRow("one") << false << 1;
        QTest::newRow("nested") << false << 3;
        QTest::newRow("already blocked") << true << 1;
        QTest::newRow("already blocked, nested") << true << 2;
    }
    void signalBlocker()
    {
        QFETCH(bool, initiallyBlocked);
        QFETCH(int, depth);
        QObject object;
        object.blockSignals(initiallyBlocked);
        QSignalSpy spy(&object, &QObject::objectNameChanged);
        {
            std::vector<std::unique_ptr<KtQtBlockSignalUtil>> blockers;
            for (int i = 0; i < depth; ++i) {
                blockers.push_back(std::make_unique<KtQtBlockSignalUtil>(&object));
                object.setObjectName(QString::number(i));
            }
            for (; blockers.size() > 1; blockers.pop_back())
                QVERIFY(object.signalsBlocked());
        }
        QCOMPARE(spy.count(), 0);
        QCOMPARE(object.signalsBlocked(), initiallyBlocked);
        object.setObjectName(QStringLiteral("after"));
        QCOMPARE(spy.count(), initiallyBlocked ? 0 : 1);
        KtQtBlockSignalUtil none(nullptr);
        auto* doomed = new QObject;
        KtQtBlockSignalUtil blocker(doomed);
        delete doomed; // the blocker outlives its object
    }

    void catalogue_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<bool>("accepted");
        QTest::addColumn<QString>("language");
        QTest::addColumn<TextMap>("expected"); // every entry afterwards; "PRE" was there before
        const TextMap pre{{"PRE", "pre"}};
        QTest::newRow("wrapped") << QByteArray(R"({"language":"de","texts":{"K1":"Eins","K2":"中文"}})")
                                 << true << "de" << TextMap{{"PRE", "pre"}, {"K1", "Eins"}, {"K2", "中文"}};
        QTest::newRow("plain") << QByteArray(R"({"K1":"One","N":5,"B":true,"O":{},"Z":null})") << true << ""
                               << TextMap{{"PRE", "pre"}, {"K1", "One"}};
        QTest::newRow("wrapped non-strings") << QByteArray(R"({"texts":{"K1":"One","K2":[1],"N":2}})") << true
                                             << "" << TextMap{{"PRE", "pre"}, {"K1", "One"}};
        QTest::newRow("overrides") << QByteArray(R"({"PRE":"new","K1":""})") << true << ""
                                   << TextMap{{"PRE", "new"}, {"K1", ""}};
        QTest::newRow("truncated") << QByteArray(R"({"K1":"One")") << false << "" << pre;
        QTest::newRow("garbage after") << QByteArray(R"({"K1":"One"} x)") << false << "" << pre;
        QTest::newRow("array") << QByteArray(R"([{"K1":"One"}])") << false << "" << pre;
        QTest::newRow("binary") << QByteArray("\x00\xff{\x01", 4) << false << "" << pre;
    }
    void catalogue()
    {
        QFETCH(QByteArray, json);
        QFETCH(bool, accepted);
        QFETCH(QString, language);
        QFETCH(TextMap, expected);
        KtUiCatalogueLanguageSvr svr;
        svr.insert(QStringLiteral("PRE"), QStringLiteral("pre"));
        QCOMPARE(svr.loadFromData(json), accepted);
        QCOMPARE(svr.count(), expected.size());
        QCOMPARE(svr.language(), language);
        for (auto it = expected.cbegin(); it != expected.cend(); ++it)
            QCOMPARE(text(svr, it.key().toStdWString().c_str(), L"default"), it.value());
        for (const wchar_t* key : {L"K2", L"N", L"O", L"language", L"texts"}) {
            if (!expected.contains(QString::fromWCharArray(key)))
                QCOMPARE(text(svr, key, L"default"), QStringLiteral("default"));
        }
    }

    void catalogueLookups()
    {
        KtUiCatalogueLanguageSvr svr;
        QVERIFY(svr.loadFromData(R"({"language":"de","texts":{"K":"first","L":"keep"}})"));
        QVERIFY(svr.loadFromData(R"({"K":"zweite 😀"})"));
        QCOMPARE(svr.language(), QStringLiteral("de")); // a plain catalogue leaves it
        QCOMPARE(text(svr, L"K", L"d"), QStringLiteral("zweite 😀"));
        QCOMPARE(text(svr, L"k", L"d"), QStringLiteral("d"));
        QCOMPARE(text(svr, nullptr, L"d"), QStringLiteral("d"));
        QVERIFY(svr.getText(nullptr, nullptr).isEmpty() && svr.getText(L"missing", nullptr).isEmpty());
        for (const char* bad : {"../lang/en", "zz", ""})
            QVERIFY2(!svr.loadBuiltIn(QString::fromLatin1(bad)), bad);
        QCOMPARE(svr.count(), 2);
        QVERIFY(svr.loadBuiltIn(QStringLiteral("en")));
        QCOMPARE(svr.language(), QStringLiteral("en"));
        QCOMPARE(text(svr, L"IDS_PLOTSTYLE_LINETYPE_PROMPT_0", L"d"), QStringLiteral("Solid"));
        QCOMPARE(text(svr, L"L", nullptr), QStringLiteral("keep"));
    }

    void languageServiceRegistration()
    {
        CJxServiceDictionary* dict = CJxSystem::instance()->getServiceDictionary();
        const KtString name(KT_UI_LANGUAGE_SERVICE_NAME);
        const long long heapBase = ktHeapLiveBlocks();
        QVERIFY(!dict->hasService(name));
        auto* first = new KtUiCatalogueLanguageSvr;
        auto* second = new KtUiCatalogueLanguageSvr;
        QCOMPARE(ktHeapLiveBlocks(), heapBase + 2);
        first->insert(QStringLiteral("K"), QStringLiteral("first"));
        QVERIFY(first->registerWithHost());
        QVERIFY(!first->registerWithHost() && !second->registerWithHost());
        second->unregisterFromHost(); // not the registered one: no effect
        QVERIFY(dict->registerService(4711, first));
        const KtUiLanguageSvr* svc = KtUiLanguageSvr::cast(dict->getService(name));
        QVERIFY(svc == first && text(*svc, L"K", L"d") == QStringLiteral("first"));
        delete first; // unregisters itself under every name and number
        QVERIFY(!dict->hasService(name) && !dict->hasService(4711));
        QVERIFY(second->registerWithHost());
        second->unregisterFromHost();
        QVERIFY(!dict->hasService(name) && second->registerWithHost());
        delete second;
        QVERIFY(!dict->hasService(name));
        QCOMPARE(ktHeapLiveBlocks(), heapBase);
    }

    void imagePath_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QSize>("size"); // invalid: the path must not exist
        QTest::newRow("fill style") << "plot/plotstyle_fillstyle.bmp" << QSize(26, 130);
        QTest::newRow("connect style") << "plot/plotstyle_connectstyle.bmp" << QSize(26, 65);
        QTest::newRow("empty") << "common/empty.bmp" << QSize(48, 64);
        QTest::newRow("backslashes") << "plot\\plotstyle_fillstyle.bmp" << QSize(26, 130);
        QTest::newRow("dots inside") << "common/../plot/./plotstyle_fillstyle.bmp" << QSize(26, 130);
        QTest::newRow("missing") << "plot/nothing.bmp" << QSize();
        QTest::newRow("directory") << "plot" << QSize();
        QTest::newRow("empty name") << "" << QSize();
        QTest::newRow("climbs out later") << "plot/../../images/common/empty.bmp" << QSize();
        QTest::newRow("resource path") << ":/kthost/images/common/empty.bmp" << QSize();
    }
    void imagePath()
    {
        QFETCH(QString, name);
        QFETCH(QSize, size);
        for (bool allowOverride : {true, false}) {
            const QString path = ktutGetImageFullPath(name, allowOverride);
            QCOMPARE(QFile::exists(path), size.isValid());
            if (size.isValid())
                QCOMPARE(QPixmap(path).size(), size);
        }
    }

    void imageOverride_data()
    {
        QTest::addColumn<int>("setterDir"); // 0 unset, 1 a directory without the image, 2 one with it
        QTest::addColumn<int>("envDir");
        QTest::addColumn<bool>("allowOverride");
        QTest::addColumn<int>("width"); // of the image found: 26 embedded, 10 setter's, 20 environment's
        QTest::newRow("no override") << 0 << 0 << true << 26;
        QTest::newRow("setter") << 2 << 0 << true << 10;
        QTest::newRow("environment") << 0 << 2 << true << 20;
        QTest::newRow("setter first") << 2 << 2 << true << 10;
        QTest::newRow("setter lacks it") << 1 << 2 << true << 20;
        QTest::newRow("neither has it") << 1 << 1 << true << 26;
        QTest::newRow("setter, not allowed") << 2 << 0 << false << 26;
        QTest::newRow("environment, not allowed") << 0 << 2 << false << 26;
    }
    void imageOverride()
    {
        QFETCH(int, setterDir);
        QFETCH(int, envDir);
        QFETCH(bool, allowOverride);
        QFETCH(int, width);
        const QString name = QStringLiteral("plot/plotstyle_fillstyle.bmp");
        const QString connect = QStringLiteral("plot/plotstyle_connectstyle.bmp");
        QTemporaryDir tmp;
        const QString dirs[] = {QString(), tmp.filePath("bare"), tmp.filePath("app")};
        writeImage(dirs[2] + '/' + name, 10);
        writeImage(tmp.filePath("env/") + name, 20);
        writeImage(tmp.filePath("outside.bmp"), 5);
        QVERIFY(QDir().mkpath(dirs[1] + '/' + connect)); // a directory named like an image
        ktutSetImageDirectory(dirs[setterDir]);
        QCOMPARE(ktutImageDirectory(), dirs[setterDir]);
        if (envDir)
            qputenv("KT_IMAGE_DIR", QFile::encodeName(envDir == 2 ? tmp.filePath("env") : dirs[1]));
        QCOMPARE(QPixmap(ktutGetImageFullPath(name, allowOverride)).width(), width);
        QCOMPARE(QPixmap(ktutGetImageFullPath(connect, allowOverride)).size(), QSize(26, 65));
        QVERIFY(!QFile::exists(ktutGetImageFullPath("../outside.bmp", allowOverride)));
        QVERIFY(!QFile::exists(ktutGetImageFullPath(tmp.filePath("outside.bmp"), allowOverride)));
    }
};

QTEST_MAIN(TestKtHostSystem)
#include "tst_kthostsystem.moc"
