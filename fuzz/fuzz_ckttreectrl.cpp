// CKtTreeCtrl's handle-taking calls driven by a byte stream: each operation
// picks its handles from live items, items deleted or taken out by every
// route (the control's own calls and Qt's), null and the pseudo handles.
// Every call must treat what is not an item of the tree as a null item; the
// sanitizer sees any handle that is followed after its item is gone.
#include "fuzzcheck.h"
#include "fuzzinput.h"

#include <CKtTreeCtrl>
#include <QTreeWidgetItemIterator>

#include <memory>
#include <vector>

namespace {

struct Session
{
    CKtTreeCtrl& tree;
    FuzzInput& in;
    std::vector<QTreeWidgetItem*> handles; // live and dead, in order of appearance
    std::vector<std::unique_ptr<QTreeWidgetItem>> taken; // taken out by Qt calls, owned here

    QTreeWidgetItem* pick()
    {
        static QTreeWidgetItem* const pseudo[] = {nullptr, TVI_ROOT, TVI_FIRST, TVI_LAST, TVI_SORT};
        const uint8_t b = in.byte();
        if (b < 5 || handles.empty())
            return pseudo[b % 5];
        return handles[b % handles.size()];
    }

    void run(uint8_t op)
    {
        wchar_t text[] = L"item";
        switch (op % 24) {
        case 0:
        case 1:
        case 2: {
            QTreeWidgetItem* parent = pick();
            QTreeWidgetItem* after = pick();
            QTreeWidgetItem* item = tree.InsertItem(text, in.index(), in.index(), parent, after);
            FUZZ_CHECK(item);
            handles.push_back(item);
            break;
        }
        case 3:
            FUZZ_CHECK(tree.DeleteItem(pick()) == 1);
            break;
        case 4:
            if (in.byte() % 8 == 0)
                tree.DeleteAllItems();
            break;
        case 5: {
            // Qt's own ways of removing rows.
            const uint8_t how = in.byte() % 4;
            if (how == 0 && tree.topLevelItemCount())
                taken.emplace_back(tree.takeTopLevelItem(in.byte() % tree.topLevelItemCount()));
            else if (how == 1 && tree.topLevelItemCount())
                delete tree.topLevelItem(in.byte() % tree.topLevelItemCount());
            else if (how == 2 && tree.topLevelItemCount() && tree.topLevelItem(0)->childCount())
                for (QTreeWidgetItem* child : tree.topLevelItem(0)->takeChildren())
                    taken.emplace_back(child);
            else if (how == 3 && in.byte() % 8 == 0)
                tree.clear();
            break;
        }
        case 6:
            tree.SetItemText(pick(), text);
            tree.GetItemText(pick());
            break;
        case 7:
            tree.SetItemData(pick(), in.byte());
            tree.GetItemData(pick());
            break;
        case 8:
            tree.SetItemState(pick(), unsigned(in.int32()), unsigned(in.int32()));
            break;
        case 9:
            tree.GetItemState(pick(), in.byte() & 1 ? TVIS_STATEIMAGEMASK : 0xFFFFFFFFu);
            break;
        case 10: {
            QTreeWidgetItem* item = pick();
            const QTreeWidgetItem* results[]
                = {tree.GetParentItem(item), tree.GetChildItem(item), tree.GetNextSiblingItem(item),
                    tree.GetPrevSiblingItem(item), tree.GetNextItem(item, unsigned(in.byte()))};
            for (const QTreeWidgetItem* r : results)
                FUZZ_CHECK(!r || r->treeWidget() == &tree || r == tree.invisibleRootItem());
            break;
        }
        case 11:
            tree.ItemHasChildren(pick());
            break;
        case 12:
            tree.SelectItem(pick());
            tree.GetSelectedItem();
            break;
        case 13:
            tree.Select(pick(), in.byte() % 12);
            break;
        case 14:
            tree.Expand(pick(), in.byte() % 4);
            break;
        case 15:
            tree.ExpandAllChild(pick(), in.byte() % 4);
            break;
        case 16:
            tree.SetCheck(pick(), in.byte() & 1);
            tree.GetCheck(pick());
            break;
        case 17: {
            int image = 0, selected = 0;
            tree.SetItemImage(pick(), in.index(), in.index());
            tree.GetItemImage(pick(), image, selected);
            break;
        }
        case 18:
            tree.EnsureVisible(pick());
            tree.SelectDropTarget(pick());
            break;
        case 19: {
            tagRECT rect{};
            tree.GetItemRect(pick(), &rect, 0);
            break;
        }
        case 20:
            (in.byte() & 1) ? tree.ExpandAll() : tree.CollapseAll();
            break;
        case 21: {
            unsigned int count = 0;
            for (QTreeWidgetItemIterator it(&tree); *it; ++it)
                ++count;
            FUZZ_CHECK(tree.GetCount() == count);
            break;
        }
        case 22:
            tree.AppendItemImage(QPixmap(2, 2));
            break;
        case 23:
            tree.SetCheckBoxes(in.byte() & 1);
            break;
        }
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    ensureFuzzApplication();
    // One tree for the whole run: building a widget per input would cost more
    // than the calls under test. Each input starts from an empty tree.
    static CKtTreeCtrl* tree = new CKtTreeCtrl(nullptr);
    tree->DeleteAllItems();
    tree->ClearItemImageList();
    tree->SetCheckBoxes(0);
    FuzzInput in(data, size);
    Session session{*tree, in, {}, {}};
    for (int steps = 0; steps < 48 && !in.atEnd(); ++steps)
        session.run(in.byte());
    return 0;
}
