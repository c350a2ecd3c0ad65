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

        const QRegularExpression key(QStringLiteral("\"(IDS_[A-Za-z0-9_]+)\""));
        QSet<QString> keys;
        QStringList missing;
        QDirIterator it(QStringLiteral(KT_SOURCE_DIR "/src"), {"*.cpp", "*.h"}, QDir::Files,
            QDirIterator::Subdirectories);
        while (it.hasNext()) {
            QFile source(it.next());
            QVERIFY(source.open(QIODevice::ReadOnly));
            auto matches = key.globalMatch(QString::fromUtf8(source.readAll()));
            while (matches.hasNext()) {
                const QString k = matches.next().captured(1);
                if (!keys.contains(k) && !english.contains(k))
                    missing << k;
                keys.insert(k);
            }
        }
        QVERIFY2(keys.size() >= 60, "the scan found too few keys: is KT_SOURCE_DIR right?");
        QVERIFY2(missing.isEmpty(), qPrintable("no English text for " + missing.join(", ")));
    }
};

QTEST_GUILESS_MAIN(TestEnglishCatalogue)
#include "tst_englishcatalogue.moc"
