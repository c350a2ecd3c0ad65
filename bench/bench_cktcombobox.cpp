// CKtComboBox beside a plain QComboBox doing the same work on 10 000 items.
//
// Both combos are never shown, as in a dialog that is filled before it opens.
// Filling gets a fresh combo per iteration; building and destroying it is not
// timed. The searches look for the last item, so both walk the whole list.

#include "ratioreporter.h"

#include <CKtComboBox>

#include <QComboBox>

#include <cwchar>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int kItems = 10000;

// Prepared once, outside any timing, and used by both sides.
const std::vector<std::wstring>& itemTexts()
{
    static const std::vector<std::wstring> texts = [] {
        std::vector<std::wstring> v;
        v.reserve(kItems);
        wchar_t buf[32];
        for (int i = 0; i < kItems; ++i) {
            std::swprintf(buf, 32, L"Item %d", i);
            v.emplace_back(buf);
        }
        return v;
    }();
    return texts;
}

// The last item, in another case: the exact search ignores case on both sides.
const wchar_t* const kLastItemOtherCase = L"ITEM 9999";
const wchar_t* const kLastItemPrefix = L"item 9999";

void ktFill(CKtComboBox& combo)
{
    for (const std::wstring& text : itemTexts())
        combo.AddString(text.c_str());
}

void qtFill(QComboBox& combo)
{
    for (const std::wstring& text : itemTexts())
        combo.addItem(QString::fromWCharArray(text.c_str(), int(text.size())));
}

// The combo holds every text in order, and the current item is as expected:
// none for AddString(), the first item for Qt's addItem().
bool filled(const QComboBox& combo, int current)
{
    return combo.count() == kItems && combo.currentIndex() == current
        && combo.itemText(0) == QString::fromStdWString(itemTexts().front())
        && combo.itemText(kItems - 1) == QString::fromStdWString(itemTexts().back());
}

template <class Combo, class Fill>
void timedFill(benchmark::State& state, Fill fill, int current)
{
    bool checked = false;
    for (auto _ : state) {
        state.PauseTiming();
        auto combo = std::make_unique<Combo>(nullptr);
        state.ResumeTiming();

        fill(*combo);

        state.PauseTiming();
        if (!checked) {
            checked = true;
            if (!filled(*combo, current)) {
                // Timing stays paused: a skipped run must not be resumed.
                state.SkipWithError("the combo does not hold what was expected");
                break;
            }
        }
        combo.reset();
        state.ResumeTiming();
    }
}

void BM_KtAddString(benchmark::State& state)
{
    timedFill<CKtComboBox>(state, ktFill, -1);
}

void BM_QtAddString(benchmark::State& state)
{
    timedFill<QComboBox>(state, qtFill, 0);
}

// Runs @p find on a filled combo and checks that it found the last item.
template <class Combo, class Fill, class Find>
void timedFind(benchmark::State& state, Fill fill, Find find)
{
    Combo combo(nullptr);
    fill(combo);
    int found = -1;
    for (auto _ : state) {
        found = find(combo);
        benchmark::DoNotOptimize(found);
    }
    if (found != kItems - 1)
        state.SkipWithError("the last item was not found");
}

void BM_KtFindStringExact(benchmark::State& state)
{
    timedFind<CKtComboBox>(
        state, ktFill, [](CKtComboBox& combo) { return combo.FindStringExact(-1, kLastItemOtherCase); });
}

// Qt's case-insensitive whole-text match.
void BM_QtFindStringExact(benchmark::State& state)
{
    timedFind<QComboBox>(state, qtFill, [](QComboBox& combo) {
        return combo.findText(QString::fromWCharArray(kLastItemOtherCase), Qt::MatchFixedString);
    });
}

// Qt's default search: exact and case-sensitive, so it needs the text as stored.
void BM_QtFindTextMatchExact(benchmark::State& state)
{
    timedFind<QComboBox>(state, qtFill, [](QComboBox& combo) {
        return combo.findText(QString::fromWCharArray(L"Item 9999"), Qt::MatchExactly);
    });
}

void BM_KtFindString(benchmark::State& state)
{
    timedFind<CKtComboBox>(
        state, ktFill, [](CKtComboBox& combo) { return combo.FindString(-1, kLastItemPrefix); });
}

void BM_QtFindString(benchmark::State& state)
{
    timedFind<QComboBox>(state, qtFill, [](QComboBox& combo) {
        return combo.findText(QString::fromWCharArray(kLastItemPrefix), Qt::MatchStartsWith);
    });
}

} // namespace

BENCHMARK(BM_KtAddString)
    ->Name("Kt/AddString")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(20)
    ->Repetitions(3)
    ->ReportAggregatesOnly(true);
BENCHMARK(BM_QtAddString)
    ->Name("Qt/AddString")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(20)
    ->Repetitions(3)
    ->ReportAggregatesOnly(true);

#define KT_FIND_CASE(fn, name)                                                                               \
    BENCHMARK(fn)->Name(name)->Unit(benchmark::kMicrosecond)->Repetitions(3)->ReportAggregatesOnly(true)

KT_FIND_CASE(BM_KtFindStringExact, "Kt/FindStringExact");
KT_FIND_CASE(BM_QtFindStringExact, "Qt/FindStringExact");
KT_FIND_CASE(BM_QtFindTextMatchExact, "Qt/FindTextMatchExact");
KT_FIND_CASE(BM_KtFindString, "Kt/FindString");
KT_FIND_CASE(BM_QtFindString, "Qt/FindString");

int main(int argc, char** argv)
{
    ktbench::RatioReporter reporter(1.3);
    reporter.addComparison("Kt/FindStringExact", "Qt/FindTextMatchExact",
        "the baseline is Qt's default findText(): case-sensitive, QVariant comparison");
    return ktbench::runBenchmarks(argc, argv, reporter);
}
