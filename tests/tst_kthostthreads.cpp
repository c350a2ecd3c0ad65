// The host parts that promise thread safety, used from four threads at once:
// the service dictionary, image paths, the host heap and language look-ups.
// Run under the tsan preset, this is where a data race would show.

#include <CJxServiceDictionary>
#include <CJxSystem>
#include <KtUiCatalogueLanguageSvr>
#include <QFile>
#include <QtTest>
#include <ktheap.h>
#include <ktresourcetext.h>
#include <ktutimagepath.h>

#include <atomic>
#include <thread>
#include <vector>

namespace {

constexpr int kThreads = 4;
constexpr int kRounds = 300;

} // namespace

class TestKtHostThreads : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hostServicesOnFourThreads()
    {
        CJxServiceDictionary* services = CJxSystem::instance()->getServiceDictionary();
        KtUiCatalogueLanguageSvr english;
        QVERIFY(english.loadBuiltIn(QStringLiteral("en")));
        QVERIFY(english.registerWithHost());
        std::vector<KtUiCatalogueLanguageSvr> own(kThreads);
        const long long liveBefore = ktHeapLiveBlocks();
        std::atomic<int> ready{0};
        std::atomic<int> failures{0};
        const auto work = [&](int t) {
            ++ready;
            while (ready.load() < kThreads)
                std::this_thread::yield();
            const KtString name(QStringLiteral("threads.own.%1").arg(t).toStdWString().c_str());
            int bad = 0;
            for (int i = 0; i < kRounds; ++i) {
                if (t == 0)
                    ktutSetImageDirectory(i % 2 ? QStringLiteral("/nonexistent-kt-images") : QString());
                bad += !services->registerService(name, &own[t]);
                bad += !services->registerService(1000 + t, &own[t]);
                bad += services->getService(name) != &own[t] || !services->hasService(1000 + t);
                bad += services->unregisterService(&own[t]) != 2;
                // The look-ups find the language service in the dictionary the other threads change.
                bad += ktutResourceText(L"IDS_PLOTSTYLEOPTIONCMD_6", L"实心") != QStringLiteral("Solid");
                bad += ktutResourceText(L"IDS_NO_SUCH_KEY", L"默认") != QStringLiteral("默认");
                bad += english.getText(L"IDS_STRING_RED", L"红") != KtString(L"Red");
                bad += !QFile::exists(ktutGetImageFullPath(QStringLiteral("plot/plotstyle_fillstyle.bmp")));
                bad += QFile::exists(ktutGetImageFullPath(QStringLiteral("../outside.bmp")));
                void* block = ktHeapAlloc(std::size_t(16 + i));
                static_cast<char*>(block)[0] = char(t);
                ktHeapFree(block);
            }
            failures += bad;
        };
        std::vector<std::thread> threads;
        for (int t = 0; t < kThreads; ++t)
            threads.emplace_back(work, t);
        for (std::thread& thread : threads)
            thread.join();
        ktutSetImageDirectory(QString());
        english.unregisterFromHost();
        QCOMPARE(failures.load(), 0);
        QCOMPARE(ktHeapLiveBlocks(), liveBefore);
    }
};

QTEST_GUILESS_MAIN(TestKtHostThreads)
#include "tst_kthostthreads.moc"
