// Every resource key the library asks the language service for has an entry
// in the English catalogue that KtHost ships.

#include <KtUiCatalogueLanguageSvr>
#include <QDirIterator>
#include <QRegularExpression>
#include <QtTest>

class TestEnglishCatalogue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyKeyTranslated()
    {
        KtUiCatalogueLanguageSvr english;
        QVERIFY(english.loadBuiltIn(QStringLiteral("en")));
        QCOMPARE(english.language(), QStringLiteral("en"));

        const QRegularExpression key(QStringLiteral("\"(IDS_[A-Za-z0-9_]+)\""));
        QSet<QString> keys;
        QDirIterator it(QStringLiteral(KT_SOURCE_DIR "/src"), {"*.cpp", "*.h"}, QDir::Files,
            QDirIterator::Subdirectories);
        while (it.hasNext()) {
            QFile source(it.next());
            QVERIFY(source.open(QIODevice::ReadOnly));
            auto matches = key.globalMatch(QString::fromUtf8(source.readAll()));
            while (matches.hasNext())
                keys.insert(matches.next().captured(1));
        }
        QVERIFY2(keys.size() >= 60, "the scan found too few keys: is KT_SOURCE_DIR right?");

        QStringList missing;
        for (const QString& k : qAsConst(keys)) {
            if (!english.contains(k))
                missing << k;
        }
        missing.sort();
        QVERIFY2(missing.isEmpty(), qPrintable("no English text for " + missing.join(", ")));
    }
};

QTEST_GUILESS_MAIN(TestEnglishCatalogue)
#include "tst_englishcatalogue.moc"
