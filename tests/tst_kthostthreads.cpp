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
#include <functional>
#include <thread>
#include <vector>

namespace {

constexpr int kThreads = 4;
constexpr int kRounds = 300;

// Runs @p work(thread) on kThreads threads that start together; returns the failures they counted.
int onFourThreads(const std::function<int(int)>& work)
{
    std::atomic<int> ready{0};
    std::atomic<int> failures{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&, t] {
            ++ready;
            while (ready.load() < kThreads)
                std::this_thread::yield();
            failures += work(t);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    return failures.load();
}

} // namespace

class TestKtHostThreads : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void serviceDictionary()
    {
        CJxServiceDictionary* services = CJxSystem::instance()->getServiceDictionary();
        KtUiCatalogueLanguageSvr shared;
        QVERIFY(services->registerService(KtString(L"threads.shared"), &shared));
        std::vector<KtUiCatalogueLanguageSvr> own(kThreads);
        const int failures = onFourThreads([&](int t) {
            int bad = 0;
            const KtString name(QStringLiteral("threads.own.%1").arg(t).toStdWString().c_str());
            for (int i = 0; i < kRounds; ++i) {
                bad += services->registerService(name, &own[t]) ? 0 : 1;
                bad += services->registerService(1000 + t, &own[t]) ? 0 : 1;
                bad += services->getService(KtString(L"threads.shared")) == &shared ? 0 : 1;
                bad += services->getService(name) == &own[t] && services->hasService(1000 + t) ? 0 : 1;
                bad += services->unregisterService(&own[t]) == 2 ? 0 : 1;
            }
            return bad;
        });
        QCOMPARE(failures, 0);
        QVERIFY(services->unregisterService(KtString(L"threads.shared")));
    }

    void imagePathsAndHeap()
    {
        const long long liveBefore = ktHeapLiveBlocks();
        const int failures = onFourThreads([](int t) {
            int bad = 0;
            for (int i = 0; i < kRounds; ++i) {
                if (t == 0)
                    ktutSetImageDirectory(i % 2 ? QStringLiteral("/nonexistent-kt-images") : QString());
                bad += QFile::exists(ktutGetImageFullPath(QStringLiteral("plot/plotstyle_fillstyle.bmp")))
                    ? 0
                    : 1;
                bad += QFile::exists(ktutGetImageFullPath(QStringLiteral("../outside.bmp"))) ? 1 : 0;
                void* block = ktHeapAlloc(std::size_t(16 + i));
                static_cast<char*>(block)[0] = char(t);
                ktHeapFree(block);
            }
            return bad;
        });
        ktutSetImageDirectory(QString());
        QCOMPARE(failures, 0);
        QCOMPARE(ktHeapLiveBlocks(), liveBefore);
    }

    void languageLookups()
    {
        KtUiCatalogueLanguageSvr english;
        QVERIFY(english.loadBuiltIn(QStringLiteral("en")));
        QVERIFY(english.registerWithHost());
        const int failures = onFourThreads([&english](int) {
            int bad = 0;
            for (int i = 0; i < kRounds; ++i) {
                bad += ktutResourceText(L"IDS_PLOTSTYLEOPTIONCMD_6", L"实心") == QStringLiteral("Solid") ? 0
                                                                                                         : 1;
                bad += ktutResourceText(L"IDS_NO_SUCH_KEY", L"默认") == QStringLiteral("默认") ? 0 : 1;
                bad += english.getText(L"IDS_STRING_RED", L"红") == KtString(L"Red") ? 0 : 1;
            }
            return bad;
        });
        english.unregisterFromHost();
        QCOMPARE(failures, 0);
    }
};

QTEST_GUILESS_MAIN(TestKtHostThreads)
#include "tst_kthostthreads.moc"
