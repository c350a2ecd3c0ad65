// CKtListCtrl's index-taking calls driven by a byte stream, with rows and
// columns anywhere in the 32-bit range: negative, past the end, INT_MAX.
// Nothing may crash or abort, and the table never grows past what the
// structure form of InsertItem allows.
#include "fuzzcheck.h"
#include "fuzzinput.h"

#include <CKtListCtrl>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    ensureFuzzApplication();
    static CKtListCtrl* list = [] {
        auto* l = new CKtListCtrl(nullptr);
        l->AppendItemImage(QPixmap(2, 2));
        return l;
    }();
    list->DeleteAllItems();
    list->setColumnCount(0);

    FuzzInput in(data, size);
    wchar_t text[] = L"cell";
    for (int steps = 0; steps < 48 && !in.atEnd(); ++steps) {
        switch (in.byte() % 20) {
        case 0:
            list->InsertColumn(in.index(), text, in.index(), in.index());
            break;
        case 1:
            list->InsertItem(in.index(), text);
            break;
        case 2: {
            tagLVITEMW item{};
            item.mask = in.byte();
            item.iItem = in.index();
            item.iSubItem = in.index();
            item.iImage = in.index();
            item.pszText = text;
            item.lParam = in.int32();
            list->InsertItem(&item);
            break;
        }
        case 3:
            list->DeleteItem(in.index());
            break;
        case 4:
            if (in.byte() % 8 == 0)
                list->DeleteAllItems();
            break;
        case 5:
            list->SetItemText(in.index(), in.index(), text);
            list->GetItemText(in.index(), in.index());
            break;
        case 6:
            list->SetItemData(in.index(), in.byte());
            list->GetItemData(in.index());
            break;
        case 7:
            list->SetItemState(in.index(), unsigned(in.int32()), unsigned(in.int32()));
            list->GetItemState(in.index(), unsigned(in.int32()));
            break;
        case 8:
            list->SetCheck(in.index(), in.byte() & 1);
            list->GetCheck(in.index());
            break;
        case 9:
            list->GetNextItem(in.index(), in.int32());
            break;
        case 10: {
            POSITION pos = list->GetFirstSelectedItemPosition();
            for (int guard = 0; pos && guard < 10000; ++guard)
                FUZZ_CHECK(list->GetNextSelectedItem(pos) >= 0);
            break;
        }
        case 11: {
            tagRECT rect{};
            list->GetItemRect(in.index(), &rect, in.byte());
            break;
        }
        case 12:
            list->EnsureVisible(in.index(), in.byte() & 1);
            break;
        case 13:
            list->RedrawItems(in.index(), in.index());
            break;
        case 14:
            list->SetColumnWidth(in.index(), in.index());
            break;
        case 15:
            list->SetExtendedStyle(unsigned(in.int32()));
            break;
        case 16:
            list->HitTest(CPoint(in.index(), in.index()));
            break;
        case 17:
            list->GetSelectedCount();
            break;
        case 18:
            list->SetItemText(in.index(), 0, nullptr);
            break;
        case 19:
            FUZZ_CHECK(list->GetItemCount() == list->rowCount());
            break;
        }
        FUZZ_CHECK(qint64(list->rowCount()) * qMax(1, list->columnCount()) <= (qint64(1) << 22));
    }
    return 0;
}
