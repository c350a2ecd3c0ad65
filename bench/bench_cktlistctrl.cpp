// CKtListCtrl beside a plain QTableWidget doing the same work: filling 100 000
// rows of four columns, emptying the table, and walking the selected rows.
//
// Both tables are never shown, as in a dialog that is filled before it opens.
// Every case that changes the table gets a fresh one per iteration; building,
// filling beforehand and destroying it are not timed.

#include "ratioreporter.h"

#include <CKtListCtrl>

#include <QItemSelection>
#include <QItemSelectionModel>
#include <QStringList>
#include <QTableWidget>

#include <cwchar>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int kRows = 100000;
constexpr int kColumns = 4;

// Texts are prepared once, outside any timing, and used by both sides:
// column c of row r is texts().cells[c][r].
struct Texts
{
    std::vector<std::wstring> cells[kColumns];
    std::vector<std::wstring> headings;

    Texts()
    {
        const wchar_t* formats[kColumns] = {L"Layer %d", L"%d", L"Continuous %d", L"Layer %d of the drawing"};
        wchar_t buf[64];
        for (int c = 0; c < kColumns; ++c) {
            cells[c].reserve(kRows);
            for (int r = 0; r < kRows; ++r) {
                std::swprintf(buf, 64, formats[c], r);
                cells[c].emplace_back(buf);
            }
        }
        headings = {L"Name", L"Colour", L"Linetype", L"Description"};
    }
};

const Texts& texts()
{
    static const Texts t;
    return t;
}

std::unique_ptr<CKtListCtrl> newKtList()
{
    auto list = std::make_unique<CKtListCtrl>();
    for (int c = 0; c < kColumns; ++c)
        list->InsertColumn(c, texts().headings[std::size_t(c)].c_str(), LVCFMT_LEFT, -1);
    return list;
}

std::unique_ptr<QTableWidget> newQtTable()
{
    auto table = std::make_unique<QTableWidget>();
    table->setColumnCount(kColumns);
    QStringList headings;
    for (const std::wstring& heading : texts().headings)
        headings << QString::fromWCharArray(heading.c_str());
    table->setHorizontalHeaderLabels(headings);
    return table;
}

// --- Filling ------------------------------------------------------------------------------

void ktFill(CKtListCtrl& list, int rows)
{
    const Texts& t = texts();
    for (int r = 0; r < rows; ++r) {
        list.InsertItem(r, t.cells[0][std::size_t(r)].c_str());
        for (int c = 1; c < kColumns; ++c)
            list.SetItemText(r, c, t.cells[c][std::size_t(r)].c_str());
    }
}

void qtFill(QTableWidget& table, int rows)
{
    const Texts& t = texts();
    for (int r = 0; r < rows; ++r) {
        table.insertRow(r);
        for (int c = 0; c < kColumns; ++c)
            table.setItem(
                r, c, new QTableWidgetItem(QString::fromWCharArray(t.cells[c][std::size_t(r)].c_str())));
    }
}

bool filled(QTableWidget& table, int rows)
{
    const Texts& t = texts();
    auto text = [&table](int r, int c) { return table.item(r, c) ? table.item(r, c)->text() : QString(); };
    return table.rowCount() == rows && table.columnCount() == kColumns
        && text(0, 0) == QString::fromWCharArray(t.cells[0][0].c_str())
        && text(rows - 1, kColumns - 1)
        == QString::fromWCharArray(t.cells[kColumns - 1][std::size_t(rows - 1)].c_str());
}

// Runs @p work on a fresh table prepared by @p prepare; only @p work is timed.
// @p check runs untimed after the first iteration and fails the case when false.
template <class MakeTable, class Prepare, class Work, class Check>
void timedOnFreshTable(benchmark::State& state, MakeTable makeTable, Prepare prepare, Work work, Check check)
{
    bool checked = false;
    for (auto _ : state) {
        state.PauseTiming();
        auto table = makeTable();
        prepare(*table);
        state.ResumeTiming();

        work(*table);

        state.PauseTiming();
        if (!checked) {
            checked = true;
            if (!check(*table)) {
                state.SkipWithError("the table does not hold what was expected");
                table.reset();
                state.ResumeTiming();
                break;
            }
        }
        table.reset();
        state.ResumeTiming();
    }
}

const auto kNothing = [](auto&) {};

void BM_KtInsert(benchmark::State& state)
{
    timedOnFreshTable(
        state, newKtList, kNothing, [](CKtListCtrl& list) { ktFill(list, kRows); },
        [](CKtListCtrl& list) { return filled(list, kRows); });
}

void BM_QtInsert(benchmark::State& state)
{
    timedOnFreshTable(
        state, newQtTable, kNothing, [](QTableWidget& table) { qtFill(table, kRows); },
        [](QTableWidget& table) { return filled(table, kRows); });
}

// --- Emptying ---------------------------------------------------------------------------------

// The rows go, the columns and their headings stay.
bool emptied(QTableWidget& table)
{
    return table.rowCount() == 0 && table.columnCount() == kColumns
        && table.horizontalHeaderItem(kColumns - 1) && !table.signalsBlocked();
}

void BM_KtDeleteAllItems(benchmark::State& state)
{
    const int rows = int(state.range(0));
    timedOnFreshTable(
        state, newKtList, [rows](CKtListCtrl& list) { ktFill(list, rows); },
        [](CKtListCtrl& list) { list.DeleteAllItems(); }, emptied);
}

// The plain way of emptying a table: setRowCount(0), with signals blocked as DeleteAllItems does.
void BM_QtDeleteAllItems(benchmark::State& state)
{
    const int rows = int(state.range(0));
    timedOnFreshTable(
        state, newQtTable, [rows](QTableWidget& table) { qtFill(table, rows); },
        [](QTableWidget& table) {
            table.blockSignals(true);
            table.setRowCount(0);
            table.blockSignals(false);
        },
        emptied);
}

// Removing row 0 until none is left: every removal moves all later rows up.
void BM_QtRemoveFirstRowLoop(benchmark::State& state)
{
    const int rows = int(state.range(0));
    timedOnFreshTable(
        state, newQtTable, [rows](QTableWidget& table) { qtFill(table, rows); },
        [](QTableWidget& table) {
            table.blockSignals(true);
            while (table.rowCount() > 0)
                table.removeRow(0);
            table.blockSignals(false);
        },
        emptied);
}

// --- Walking the selected rows ------------------------------------------------------------------

// A table of 2 * selected rows whose first @p selected rows are selected whole.
template <class Table>
void selectFirstRows(Table& table, int selected)
{
    table.setSelectionMode(QAbstractItemView::ExtendedSelection);
    table.setSelectionBehavior(QAbstractItemView::SelectRows);
    QAbstractItemModel* model = table.model();
    table.selectionModel()->select(
        QItemSelection(model->index(0, 0), model->index(selected - 1, kColumns - 1)),
        QItemSelectionModel::Select);
}

// Sums the rows of every walk: each iteration is one whole walk from the first position.
void BM_KtWalkSelected(benchmark::State& state)
{
    const int selected = int(state.range(0));
    auto list = newKtList();
    ktFill(*list, 2 * selected);
    selectFirstRows(*list, selected);
    long long sum = 0;
    int seen = 0;
    for (auto _ : state) {
        sum = 0;
        seen = 0;
        for (POSITION pos = list->GetFirstSelectedItemPosition(); pos;) {
            sum += list->GetNextSelectedItem(pos);
            ++seen;
        }
        benchmark::DoNotOptimize(sum);
    }
    if (seen != selected || sum != (long long)selected * (selected - 1) / 2)
        state.SkipWithError("the walk did not visit every selected row");
}

void BM_QtWalkSelected(benchmark::State& state)
{
    const int selected = int(state.range(0));
    auto table = newQtTable();
    qtFill(*table, 2 * selected);
    selectFirstRows(*table, selected);
    long long sum = 0;
    int seen = 0;
    for (auto _ : state) {
        sum = 0;
        seen = 0;
        const QModelIndexList rows = table->selectionModel()->selectedRows(0);
        for (const QModelIndex& index : rows) {
            sum += index.row();
            ++seen;
        }
        benchmark::DoNotOptimize(sum);
    }
    if (seen != selected || sum != (long long)selected * (selected - 1) / 2)
        state.SkipWithError("the walk did not visit every selected row");
}

} // namespace

KT_BUILD_CASE(BM_KtInsert, "Kt/Insert4Columns", 3);
KT_BUILD_CASE(BM_QtInsert, "Qt/Insert4Columns", 3);
KT_BUILD_CASE(BM_KtDeleteAllItems, "Kt/DeleteAllItems", 3)->Arg(20000)->Arg(kRows);
KT_BUILD_CASE(BM_QtDeleteAllItems, "Qt/DeleteAllItems", 3)->Arg(20000)->Arg(kRows);
// Quadratic: one iteration at the smaller size is plenty.
KT_BUILD_CASE(BM_QtRemoveFirstRowLoop, "Qt/RemoveFirstRowLoop", 1)->Arg(20000);

// Read-only cases reuse one table; Google Benchmark picks their iteration count.
BENCHMARK(BM_KtWalkSelected)
    ->Name("Kt/WalkSelected")
    ->Unit(benchmark::kMillisecond)
    ->Arg(10000)
    ->Arg(40000)
    ->Repetitions(3)
    ->ReportAggregatesOnly(true);
BENCHMARK(BM_QtWalkSelected)
    ->Name("Qt/WalkSelected")
    ->Unit(benchmark::kMillisecond)
    ->Arg(10000)
    ->Arg(40000)
    ->Repetitions(3)
    ->ReportAggregatesOnly(true);

int main(int argc, char** argv)
{
    ktbench::RatioReporter reporter(1.3);
    reporter.addComparison("Kt/DeleteAllItems/20000", "Qt/RemoveFirstRowLoop/20000",
        "the baseline removes row 0 until none is left, one removal per row");
    return ktbench::runBenchmarks(argc, argv, reporter);
}
