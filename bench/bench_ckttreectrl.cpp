// CKtTreeCtrl beside a plain QTreeWidget doing the same work on 100 000 items.
//
// Both trees are configured alike (header hidden) and never shown, as in a
// dialog that is filled before it opens. Every case that changes the tree gets
// a fresh one per iteration; building and destroying it is not timed.

#include "ratioreporter.h"

#include <CKtTreeCtrl>
#include <KtItemRole>

#include <QStringList>
#include <QTreeWidget>
#include <QTreeWidgetItem>
#include <QTreeWidgetItemIterator>

#include <cwchar>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int kItems = 100000;
constexpr int kGroups = 1000;
constexpr int kChildrenPerGroup = kItems / kGroups;
constexpr int kGroupTreeSize = kGroups + kItems;

// Texts are prepared once, outside any timing, and used by both sides.
struct Texts
{
    std::vector<std::wstring> items; // L"Item 0" .. L"Item 99999"
    std::vector<std::wstring> groups; // L"Group 0" .. L"Group 999"

    Texts()
    {
        wchar_t buf[32];
        items.reserve(kItems);
        for (int i = 0; i < kItems; ++i) {
            std::swprintf(buf, 32, L"Item %d", i);
            items.emplace_back(buf);
        }
        groups.reserve(kGroups);
        for (int i = 0; i < kGroups; ++i) {
            std::swprintf(buf, 32, L"Group %d", i);
            groups.emplace_back(buf);
        }
    }
};

const Texts& texts()
{
    static const Texts t;
    return t;
}

QString expectedItemText(int i)
{
    return QString::fromWCharArray(texts().items[std::size_t(i)].c_str());
}

std::unique_ptr<CKtTreeCtrl> newKtTree()
{
    return std::make_unique<CKtTreeCtrl>();
}

std::unique_ptr<QTreeWidget> newQtTree()
{
    // CKtTreeCtrl hides its header; the plain tree gets the same look.
    auto tree = std::make_unique<QTreeWidget>();
    tree->setHeaderHidden(true);
    return tree;
}

QTreeWidgetItem* newQtItem(const std::wstring& text)
{
    return new QTreeWidgetItem(QStringList{QString::fromWCharArray(text.c_str())});
}

// --- Building blocks shared by several cases ---------------------------------------------

void ktInsertTopLevel(CKtTreeCtrl& tree)
{
    for (const std::wstring& text : texts().items)
        tree.InsertItem(text.c_str(), 0, 0, nullptr, nullptr);
}

void qtInsertTopLevel(QTreeWidget& tree)
{
    for (const std::wstring& text : texts().items)
        tree.addTopLevelItem(newQtItem(text));
}

QTreeWidgetItem* ktInsertAfterPrevious(CKtTreeCtrl& tree, QTreeWidgetItem* parent)
{
    QTreeWidgetItem* previous = nullptr;
    for (const std::wstring& text : texts().items)
        previous = tree.InsertItem(text.c_str(), 0, 0, parent, previous);
    return previous;
}

QTreeWidgetItem* qtInsertAfterPrevious(QTreeWidgetItem* parent)
{
    QTreeWidgetItem* previous = nullptr;
    for (const std::wstring& text : texts().items) {
        QTreeWidgetItem* item = newQtItem(text);
        parent->insertChild(parent->indexOfChild(previous) + 1, item);
        previous = item;
    }
    return previous;
}

void ktInsertGroups(CKtTreeCtrl& tree)
{
    const Texts& t = texts();
    for (int g = 0; g < kGroups; ++g) {
        QTreeWidgetItem* parent = tree.InsertItem(t.groups[std::size_t(g)].c_str(), nullptr);
        for (int c = 0; c < kChildrenPerGroup; ++c)
            tree.InsertItem(t.items[std::size_t(g * kChildrenPerGroup + c)].c_str(), parent);
    }
}

void qtInsertGroups(QTreeWidget& tree)
{
    const Texts& t = texts();
    for (int g = 0; g < kGroups; ++g) {
        QTreeWidgetItem* parent = newQtItem(t.groups[std::size_t(g)]);
        tree.addTopLevelItem(parent);
        for (int c = 0; c < kChildrenPerGroup; ++c)
            parent->addChild(newQtItem(t.items[std::size_t(g * kChildrenPerGroup + c)]));
    }
}

bool sameTexts(QTreeWidgetItem* container, int count)
{
    if (container->childCount() != count)
        return false;
    return container->child(0)->text(0) == expectedItemText(0)
        && container->child(count - 1)->text(0) == expectedItemText(count - 1);
}

// Runs @p work on a fresh tree prepared by @p prepare; only @p work is timed.
// @p check runs untimed after the first iteration and fails the case when false.
template <class MakeTree, class Prepare, class Work, class Check>
void timedOnFreshTree(benchmark::State& state, MakeTree makeTree, Prepare prepare, Work work, Check check)
{
    bool checked = false;
    for (auto _ : state) {
        state.PauseTiming();
        auto tree = makeTree();
        auto prepared = prepare(*tree);
        state.ResumeTiming();

        work(*tree, prepared);

        state.PauseTiming();
        if (!checked) {
            checked = true;
            if (!check(*tree, prepared)) {
                // No timing calls after an error: the library checks for that.
                state.SkipWithError("the tree does not hold what was expected");
                tree.reset();
                break;
            }
        }
        tree.reset();
        state.ResumeTiming();
    }
}

const auto kNothing = [](auto&) { return nullptr; };

// --- Appending at the top level ----------------------------------------------------------

void BM_KtInsertTopLevel(benchmark::State& state)
{
    timedOnFreshTree(
        state, newKtTree, kNothing, [](CKtTreeCtrl& tree, auto) { ktInsertTopLevel(tree); },
        [](CKtTreeCtrl& tree, auto) { return sameTexts(tree.invisibleRootItem(), kItems); });
}

void BM_QtInsertTopLevel(benchmark::State& state)
{
    timedOnFreshTree(
        state, newQtTree, kNothing, [](QTreeWidget& tree, auto) { qtInsertTopLevel(tree); },
        [](QTreeWidget& tree, auto) { return sameTexts(tree.invisibleRootItem(), kItems); });
}

// --- Each item after the previous sibling under one parent -------------------------------

void BM_KtInsertAfterPrevious(benchmark::State& state)
{
    timedOnFreshTree(
        state, newKtTree,
        [](CKtTreeCtrl& tree) { return tree.InsertItem(L"Parent", 0, 0, nullptr, nullptr); },
        [](CKtTreeCtrl& tree, QTreeWidgetItem* parent) { ktInsertAfterPrevious(tree, parent); },
        [](CKtTreeCtrl&, QTreeWidgetItem* parent) { return sameTexts(parent, kItems); });
}

void BM_QtInsertAfterPrevious(benchmark::State& state)
{
    timedOnFreshTree(
        state, newQtTree,
        [](QTreeWidget& tree) {
            QTreeWidgetItem* parent = newQtItem(L"Parent");
            tree.addTopLevelItem(parent);
            return parent;
        },
        [](QTreeWidget&, QTreeWidgetItem* parent) { qtInsertAfterPrevious(parent); },
        [](QTreeWidget&, QTreeWidgetItem* parent) { return sameTexts(parent, kItems); });
}

// --- Grouped tree: 1 000 parents with 100 children each ----------------------------------

bool groupsBuilt(QTreeWidget& tree)
{
    return tree.topLevelItemCount() == kGroups && sameTexts(tree.topLevelItem(0), kChildrenPerGroup)
        && tree.topLevelItem(kGroups - 1)->child(kChildrenPerGroup - 1)->text(0)
        == expectedItemText(kItems - 1);
}

void BM_KtInsertGroups(benchmark::State& state)
{
    timedOnFreshTree(
        state, newKtTree, kNothing, [](CKtTreeCtrl& tree, auto) { ktInsertGroups(tree); },
        [](CKtTreeCtrl& tree, auto) { return groupsBuilt(tree); });
}

void BM_QtInsertGroups(benchmark::State& state)
{
    timedOnFreshTree(
        state, newQtTree, kNothing, [](QTreeWidget& tree, auto) { qtInsertGroups(tree); },
        [](QTreeWidget& tree, auto) { return groupsBuilt(tree); });
}

// --- Counting the grouped tree -----------------------------------------------------------

void BM_KtGetCount(benchmark::State& state)
{
    auto tree = newKtTree();
    ktInsertGroups(*tree);
    unsigned int count = 0;
    for (auto _ : state) {
        count = tree->GetCount();
        benchmark::DoNotOptimize(count);
    }
    if (count != unsigned(kGroupTreeSize))
        state.SkipWithError("wrong count");
}

void BM_QtGetCount(benchmark::State& state)
{
    auto tree = newQtTree();
    qtInsertGroups(*tree);
    unsigned int count = 0;
    for (auto _ : state) {
        count = 0;
        for (QTreeWidgetItemIterator it(tree.get()); *it; ++it)
            ++count;
        benchmark::DoNotOptimize(count);
    }
    if (count != unsigned(kGroupTreeSize))
        state.SkipWithError("wrong count");
}

// --- Expanding the grouped tree ----------------------------------------------------------

// The view is expanded and every descendant of the first top-level item carries
// TVIS_EXPANDED in its state role.
bool expandedWithState(QTreeWidget& tree)
{
    QTreeWidgetItem* first = tree.topLevelItem(0);
    QTreeWidgetItem* last = tree.topLevelItem(kGroups - 1);
    if (!first->isExpanded() || !last->isExpanded())
        return false;
    for (int i = 0; i < first->childCount(); ++i) {
        if (!(first->child(i)->data(0, KtItemRole::State).toUInt() & TVIS_EXPANDED))
            return false;
    }
    // Other top-level subtrees are left alone.
    return !(last->child(0)->data(0, KtItemRole::State).toUInt() & TVIS_EXPANDED);
}

void qtMarkExpanded(QTreeWidgetItem* item)
{
    for (int i = 0; i < item->childCount(); ++i) {
        QTreeWidgetItem* child = item->child(i);
        child->setData(0, KtItemRole::State, child->data(0, KtItemRole::State).toUInt() | TVIS_EXPANDED);
        qtMarkExpanded(child);
    }
}

void BM_KtExpandAll(benchmark::State& state)
{
    timedOnFreshTree(
        state, newKtTree,
        [](CKtTreeCtrl& tree) {
            ktInsertGroups(tree);
            return nullptr;
        },
        [](CKtTreeCtrl& tree, auto) { tree.ExpandAll(); },
        [](CKtTreeCtrl& tree, auto) { return expandedWithState(tree); });
}

void BM_QtExpandAll(benchmark::State& state)
{
    timedOnFreshTree(
        state, newQtTree,
        [](QTreeWidget& tree) {
            qtInsertGroups(tree);
            return nullptr;
        },
        [](QTreeWidget& tree, auto) {
            tree.expandAll();
            qtMarkExpanded(tree.topLevelItem(0));
        },
        [](QTreeWidget& tree, auto) { return expandedWithState(tree); });
}

// Not the same work as Kt/ExpandAll: the view only, no state role written.
void BM_QtExpandAllViewOnly(benchmark::State& state)
{
    timedOnFreshTree(
        state, newQtTree,
        [](QTreeWidget& tree) {
            qtInsertGroups(tree);
            return nullptr;
        },
        [](QTreeWidget& tree, auto) { tree.expandAll(); },
        [](QTreeWidget& tree, auto) { return tree.topLevelItem(kGroups - 1)->isExpanded(); });
}

// --- Emptying the grouped tree -----------------------------------------------------------

void BM_KtDeleteAllItems(benchmark::State& state)
{
    timedOnFreshTree(
        state, newKtTree,
        [](CKtTreeCtrl& tree) {
            ktInsertGroups(tree);
            return nullptr;
        },
        [](CKtTreeCtrl& tree, auto) { tree.DeleteAllItems(); },
        [](CKtTreeCtrl& tree, auto) { return tree.topLevelItemCount() == 0; });
}

void BM_QtDeleteAllItems(benchmark::State& state)
{
    timedOnFreshTree(
        state, newQtTree,
        [](QTreeWidget& tree) {
            qtInsertGroups(tree);
            return nullptr;
        },
        [](QTreeWidget& tree, auto) { tree.clear(); },
        [](QTreeWidget& tree, auto) { return tree.topLevelItemCount() == 0; });
}

// --- Walking the 100 000 children of one parent ------------------------------------------

// Walks the children of @p parent from the first with @p next(item, index) and
// checks that every one was seen, the last being @p last.
template <class Next>
void walkSiblings(benchmark::State& state, QTreeWidgetItem* parent, QTreeWidgetItem* last, Next next)
{
    int visited = 0;
    QTreeWidgetItem* seen = nullptr;
    for (auto _ : state) {
        visited = 0;
        for (QTreeWidgetItem* item = parent->child(0); item; item = next(item, visited)) {
            seen = item;
            ++visited;
        }
        benchmark::DoNotOptimize(seen);
        benchmark::DoNotOptimize(visited);
    }
    if (visited != kItems || seen != last)
        state.SkipWithError("the walk did not visit every child");
}

void BM_KtSiblingWalk(benchmark::State& state)
{
    auto tree = newKtTree();
    QTreeWidgetItem* parent = tree->InsertItem(L"Parent", 0, 0, nullptr, nullptr);
    QTreeWidgetItem* last = ktInsertAfterPrevious(*tree, parent);
    walkSiblings(
        state, parent, last, [&](QTreeWidgetItem* item, int) { return tree->GetNextSiblingItem(item); });
}

// Plain Qt walks by index; visited counts the items seen so far, so the next one is child(visited).
void BM_QtSiblingWalk(benchmark::State& state)
{
    auto tree = newQtTree();
    QTreeWidgetItem* parent = newQtItem(L"Parent");
    tree->addTopLevelItem(parent);
    QTreeWidgetItem* last = qtInsertAfterPrevious(parent);
    walkSiblings(state, parent, last, [&](QTreeWidgetItem*, int visited) { return parent->child(visited); });
}

// The plain-Qt way of asking for the next sibling of a given item, as
// GetNextSiblingItem() does: its row has to be looked up first.
void BM_QtSiblingWalkByItem(benchmark::State& state)
{
    auto tree = newQtTree();
    QTreeWidgetItem* parent = newQtItem(L"Parent");
    tree->addTopLevelItem(parent);
    QTreeWidgetItem* last = qtInsertAfterPrevious(parent);
    walkSiblings(state, parent, last,
        [&](QTreeWidgetItem* item, int) { return parent->child(parent->indexOfChild(item) + 1); });
}

} // namespace

KT_BUILD_CASE(BM_KtInsertTopLevel, "Kt/InsertTopLevel", 5);
KT_BUILD_CASE(BM_QtInsertTopLevel, "Qt/InsertTopLevel", 5);
KT_BUILD_CASE(BM_KtInsertAfterPrevious, "Kt/InsertAfterPrevious", 5);
KT_BUILD_CASE(BM_QtInsertAfterPrevious, "Qt/InsertAfterPrevious", 1);
KT_BUILD_CASE(BM_KtInsertGroups, "Kt/InsertGroups", 5);
KT_BUILD_CASE(BM_QtInsertGroups, "Qt/InsertGroups", 5);
KT_BUILD_CASE(BM_KtExpandAll, "Kt/ExpandAll", 5);
KT_BUILD_CASE(BM_QtExpandAll, "Qt/ExpandAll", 5);
KT_BUILD_CASE(BM_QtExpandAllViewOnly, "Qt/ExpandAllViewOnly", 5);
KT_BUILD_CASE(BM_KtDeleteAllItems, "Kt/DeleteAllItems", 5);
KT_BUILD_CASE(BM_QtDeleteAllItems, "Qt/DeleteAllItems", 5);

// Read-only cases reuse one tree; Google Benchmark picks their iteration count.
#define KT_READ_CASE(fn, name)                                                                               \
    BENCHMARK(fn)->Name(name)->Unit(benchmark::kMicrosecond)->Repetitions(3)->ReportAggregatesOnly(true)

KT_READ_CASE(BM_KtGetCount, "Kt/GetCount");
KT_READ_CASE(BM_QtGetCount, "Qt/GetCount");
KT_READ_CASE(BM_KtSiblingWalk, "Kt/SiblingWalk");
KT_READ_CASE(BM_QtSiblingWalk, "Qt/SiblingWalk");
// Quadratic (indexOfChild() searches from the front): one iteration is plenty.
KT_BUILD_CASE(BM_QtSiblingWalkByItem, "Qt/SiblingWalkByItem", 1);

int main(int argc, char** argv)
{
    ktbench::RatioReporter reporter(1.3);
    reporter.addComparison("Kt/ExpandAll", "Qt/ExpandAllViewOnly",
        "the baseline only expands the view and writes no state role; not the same work");
    reporter.addComparison("Kt/SiblingWalk", "Qt/SiblingWalkByItem",
        "the baseline finds the row of the given item with indexOfChild(), as plain Qt must");
    return ktbench::runBenchmarks(argc, argv, reporter);
}
