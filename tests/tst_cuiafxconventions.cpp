// Tests of what the foundation-class controls share: string conversions,
// the order of the structures' members and the resource-text look-up.

#include <CJxServiceDictionary>
#include <CJxSystem>
#include <CuiAfxCtrl>
#include <KtUiCatalogueLanguageSvr>

#include <QtTest>

#include <cstddef>

namespace {

// A host object registered under the language service's name that is not a language service.
class NotALanguageService : public CJxRxObject
{
};

} // namespace

class TestCuiAfxConventions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void conversions()
    {
        // One wchar_t per code point both ways, characters outside the BMP included.
        for (const QString& text : {QString(), QStringLiteral("使用对象线型 a🙂b")}) {
            const std::wstring wide = text.toStdWString();
            QCOMPARE(ktutWideToQString(wide.c_str()), text);
            const KtString back = ktutQStringToKtString(text);
            QCOMPARE(back.length(), int(wide.size()));
            QCOMPARE(back, KtString(wide.c_str()));
        }
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

    void structures()
    {
        // Members in the published order, so that aggregate initialisation ports unchanged.
        // (tagRECT and tagTVITEM are initialised so in the list and tree tests.)
        QVERIFY(offsetof(tagTVINSERTSTRUCT, hInsertAfter) < offsetof(tagTVINSERTSTRUCT, item));
        QVERIFY(offsetof(tagLVITEMW, iSubItem) < offsetof(tagLVITEMW, pszText));
        QVERIFY(offsetof(tagLVITEMW, iImage) < offsetof(tagLVITEMW, lParam));
    }

    void resourceText()
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
        }
        // The service went away with its owner.
        QCOMPARE(ktutResourceText(key, L"实心"), QStringLiteral("实心"));

        // Something that is not a language service under that name is not asked.
        NotALanguageService impostor;
        QVERIFY(services->registerService(KtString(KT_UI_LANGUAGE_SERVICE_NAME), &impostor));
        QCOMPARE(ktutResourceText(key, L"实心"), QStringLiteral("实心"));
        QVERIFY(services->unregisterService(KtString(KT_UI_LANGUAGE_SERVICE_NAME)));
    }
};

QTEST_MAIN(TestCuiAfxConventions)
#include "tst_cuiafxconventions.moc"
