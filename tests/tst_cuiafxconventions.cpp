// Tests of what the foundation-class controls share: string conversions,
// item roles, the published constant values, image-list operations and the
// resource-text look-up.

#include <CJxServiceDictionary>
#include <CJxSystem>
#include <CuiAfxCtrl>
#include <KtUiCatalogueLanguageSvr>

#include <QtTest>

#include <cstddef>

namespace {

QPixmap solid(const QColor& color)
{
    QPixmap pixmap(8, 8);
    pixmap.fill(color);
    return pixmap;
}

// A host object registered under the language service's name that is not a language service.
class NotALanguageService : public CJxRxObject
{
};

} // namespace

class TestCuiAfxConventions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wideToQString_data();
    void wideToQString();
    void malformedWideText();
    void itemRoles();
    void publishedValues_data();
    void publishedValues();
    void structures();
    void clearKeepsStorage();
    void resourceText();
};

void TestCuiAfxConventions::wideToQString_data()
{
    QTest::addColumn<QString>("expected");

    QTest::newRow("empty") << QString();
    QTest::newRow("ascii") << QStringLiteral("Layer 0");
    QTest::newRow("chinese") << QStringLiteral("使用对象线型");
    QTest::newRow("emoji outside the BMP") << QStringLiteral("a🙂b");
    QTest::newRow("accents") << QStringLiteral("Größe é");
}

void TestCuiAfxConventions::wideToQString()
{
    QFETCH(QString, expected);

    const std::wstring wide = expected.toStdWString();
    QCOMPARE(ktutWideToQString(wide.c_str()), expected);

    const KtString back = ktutQStringToKtString(expected);
    QCOMPARE(back.length(), int(wide.size())); // one wchar_t per code point
    QCOMPARE(back, KtString(wide.c_str()));
}

void TestCuiAfxConventions::malformedWideText()
{
    QCOMPARE(ktutWideToQString(nullptr), QString());

    // A lone surrogate and a value past U+10FFFF cannot cross as they are; the
    // rest of the text must.
    const wchar_t bad[] = {L'a', wchar_t(0xD800), L'b', wchar_t(0x110000), L'c', 0};
    const QString converted = ktutWideToQString(bad);
    QVERIFY(converted.startsWith(QLatin1Char('a')));
    QVERIFY(converted.contains(QLatin1Char('b')));
    QVERIFY(converted.endsWith(QLatin1Char('c')));
    for (const QChar ch : converted)
        QVERIFY(!ch.isSurrogate());

    const QString loneSurrogate = QStringLiteral("x") + QChar(0xDC00) + QStringLiteral("y");
    const KtString wide = ktutQStringToKtString(loneSurrogate);
    QCOMPARE(wide.at(0), L'x');
    QCOMPARE(wide.at(wide.length() - 1), L'y');
}

void TestCuiAfxConventions::itemRoles()
{
    QCOMPARE(KtItemRole::ItemData, 257);
    QCOMPARE(KtItemRole::Image, 258);
    QCOMPARE(KtItemRole::SelectedImage, 259);
    QCOMPARE(KtItemRole::State, 260);
    QCOMPARE(KtItemRole::CheckMirror, 261);
}

void TestCuiAfxConventions::publishedValues_data()
{
    QTest::addColumn<qlonglong>("value");
    QTest::addColumn<qlonglong>("published");

#define KT_VALUE(name, v) QTest::newRow(#name) << qlonglong(name) << qlonglong(v)
    KT_VALUE(TVIS_STATEIMAGEMASK, 0xF000);
    KT_VALUE(TVGN_CARET, 9);
    KT_VALUE(TVGN_LASTVISIBLE, 10);
    KT_VALUE(TVE_TOGGLE, 3);
    KT_VALUE(TVE_COLLAPSERESET, 0x8000);
    KT_VALUE(TVHT_NOWHERE | TVHT_ONITEMICON | TVHT_ONITEMLABEL, 7);
    KT_VALUE(LVCFMT_CENTER, 2);
    KT_VALUE(LVS_EX_CHECKBOXES, 0x0004);
    KT_VALUE(MF_POPUP, 0x0010);
    KT_VALUE(MF_BYPOSITION, 0x0400);
    KT_VALUE(MF_SEPARATOR, 0x0800);
    KT_VALUE(CBRS_LEFT, 0x1400);
    KT_VALUE(CBRS_TOP, 0x2800);
    KT_VALUE(CBRS_RIGHT, 0x4100);
    KT_VALUE(CBRS_BOTTOM, 0x8200);
    KT_VALUE(CB_ERR, -1);
    KT_VALUE(reinterpret_cast<qintptr>(TVI_ROOT), -0x10000);
    KT_VALUE(reinterpret_cast<qintptr>(TVI_SORT), -0x0FFFD);
#undef KT_VALUE
}

void TestCuiAfxConventions::publishedValues()
{
    QFETCH(qlonglong, value);
    QFETCH(qlonglong, published);
    QCOMPARE(value, published);
}

void TestCuiAfxConventions::structures()
{
    // Members in the published order, so that aggregate initialisation ports unchanged.
    const tagRECT rect{1, 2, 3, 4};
    QCOMPARE(rect.right, 3);
    QCOMPARE(offsetof(tagTVITEM, pszText), offsetof(tagTVITEM, stateMask) + sizeof(unsigned int));
    QVERIFY(offsetof(tagTVINSERTSTRUCT, hInsertAfter) < offsetof(tagTVINSERTSTRUCT, item));
    QVERIFY(offsetof(tagLVITEMW, iSubItem) < offsetof(tagLVITEMW, pszText));
    QVERIFY(offsetof(tagLVITEMW, iImage) < offsetof(tagLVITEMW, lParam));

    const CPoint point(QPoint(3, -4));
    QCOMPARE(point.x, 3);
    QCOMPARE(QPoint(point), QPoint(3, -4));
    QVERIFY(CPoint(tagPOINT{3, -4}) == point);
}

void TestCuiAfxConventions::clearKeepsStorage()
{
    // Index checks, icons and list replacement are covered through the tree control.
    CKtImageList list{solid(Qt::red), solid(Qt::blue), solid(Qt::green)};
    const int capacity = list.capacity();
    KtImageListOps::clear(list);
    QVERIFY(list.isEmpty());
    QCOMPARE(list.capacity(), capacity);
}

void TestCuiAfxConventions::resourceText()
{
    const wchar_t* key = L"IDS_PLOTSTYLEOPTIONCMD_6";
    CJxServiceDictionary* services = CJxSystem::instance()->getServiceDictionary();
    QVERIFY(!services->hasService(KtString(KT_UI_LANGUAGE_SERVICE_NAME))); // none at start-up

    QCOMPARE(ktutResourceText(key, L"实心"), QStringLiteral("实心"));
    QCOMPARE(ktutResourceText(key, nullptr), QString());

    {
        KtUiCatalogueLanguageSvr english;
        QVERIFY(english.loadBuiltIn(QStringLiteral("en")));
        QVERIFY(english.registerWithHost());
        // Looked up afresh: a service registered after earlier calls is used.
        QCOMPARE(ktutResourceText(key, L"实心"), QStringLiteral("Solid"));
        QCOMPARE(ktutResourceText(L"IDS_NO_SUCH_KEY", L"默认"), QStringLiteral("默认"));
        english.insert(QStringLiteral("IDS_TEST"), QStringLiteral("🙂 Test"));
        QCOMPARE(ktutResourceText(L"IDS_TEST", L""), QStringLiteral("🙂 Test"));
    }
    // The service went away with its owner.
    QCOMPARE(ktutResourceText(key, L"实心"), QStringLiteral("实心"));

    // Something that is not a language service under that name is not asked.
    NotALanguageService impostor;
    QVERIFY(services->registerService(KtString(KT_UI_LANGUAGE_SERVICE_NAME), &impostor));
    QCOMPARE(ktutResourceText(key, L"实心"), QStringLiteral("实心"));
    QVERIFY(services->unregisterService(KtString(KT_UI_LANGUAGE_SERVICE_NAME)));
}

QTEST_MAIN(TestCuiAfxConventions)
#include "tst_cuiafxconventions.moc"
