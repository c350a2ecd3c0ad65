// Tests of CKtComboBox: item operations and their signal blocking, the
// searches and the edit field.

#include <CKtComboBox>
#include <ktstringconversion.h>

#include <QLineEdit>
#include <QSignalSpy>
#include <QtTest>

#include <climits>
#include <functional>
#include <memory>
#include <string>

using Operation = std::function<int(CKtComboBox&)>;
Q_DECLARE_METATYPE(Operation)
// A call on the combo under test, kept in a table cell.
#define CALL(...) Operation([](CKtComboBox& c) { return c.__VA_ARGS__; })

namespace {

constexpr unsigned long long kAllBits = ~0ULL;

// The wide form of @p text kept in @p store; a null QString stands for a null pointer.
const wchar_t* wide(const QString& text, std::wstring& store)
{
    store = text.toStdWString();
    return text.isNull() ? nullptr : store.c_str();
}

QStringList itemTexts(const QComboBox& combo)
{
    QStringList result;
    for (int i = 0; i < combo.count(); ++i)
        result << combo.itemText(i);
    return result;
}

void fill(CKtComboBox& combo, const QStringList& items)
{
    std::wstring store;
    for (const QString& item : items)
        combo.AddString(wide(item, store));
}

// Every signal through which a dialog hears about a changed selection or text.
struct ComboSpies
{
    explicit ComboSpies(QComboBox* combo)
        : index(combo, QOverload<int>::of(&QComboBox::currentIndexChanged))
        , text(combo, &QComboBox::currentTextChanged)
        , edit(combo, &QComboBox::editTextChanged)
    { }
    int total() const { return index.count() + text.count() + edit.count(); }
    QSignalSpy index, text, edit;
};

} // namespace

class TestCKtComboBox : public QObject
{
    Q_OBJECT

    std::unique_ptr<CKtComboBox> m_combo;

private Q_SLOTS:
    void init() { m_combo = std::make_unique<CKtComboBox>(nullptr); }
    void cleanup() { m_combo.reset(); }

    void addToEmpty()
    {
        // Qt makes the first item of an empty combo current, which for an editable one also
        // replaces the typed text. AddString quietly puts both back; InsertString keeps Qt's choice.
        for (bool editable : {false, true}) {
            CKtComboBox combo;
            combo.setEditable(editable);
            if (editable)
                combo.lineEdit()->setText("typed");
            QCOMPARE(combo.GetCount(), -1);
            ComboSpies spies(&combo);
            std::unique_ptr<QSignalSpy> typed;
            if (editable)
                typed = std::make_unique<QSignalSpy>(combo.lineEdit(), &QLineEdit::textChanged);
            QCOMPARE(combo.AddString(L"x"), 0);
            QCOMPARE(combo.AddString(L"y"), 1);
            QCOMPARE(combo.GetCount(), 2);
            QCOMPARE(combo.GetCurSel(), -1);
            QCOMPARE(combo.currentText(), editable ? QStringLiteral("typed") : QString());
            QCOMPARE(spies.total() + (typed ? typed->count() : 0), 0);
        }
        for (int index : {-1, 5, INT_MIN}) {
            CKtComboBox empty;
            QCOMPARE(empty.InsertString(index, L"only"), index == -1 ? 0 : index);
            QCOMPARE(empty.GetCurSel(), 0);
        }
    }

    void operations_data()
    {
        QTest::addColumn<bool>("editable");
        QTest::addColumn<int>("result");
        QTest::addColumn<QStringList>("items");
        QTest::addColumn<int>("current");
        QTest::addColumn<QString>("text");
        QTest::addColumn<Operation>("operation");

        // Items alpha, beta, gamma with alpha current. Each call changes the current index
        // or text as Qt sees it, yet only Clear is heard. The current item is followed, not restored.
        const QStringList abc{"alpha", "beta", "gamma"}, abcNew = abc + QStringList{"new"};
        const QStringList newAbc = QStringList{"new"} + abc;
        auto add = [](const char* name, bool editable, int result, const QStringList& items, int current,
                       const QString& text, Operation operation) {
            QTest::newRow(name) << editable << result << items << current << text << operation;
        };
        add("SetCurSel", false, 2, abc, 2, "gamma", CALL(SetCurSel(2)));
        add("AddString", false, 3, abcNew, 0, "alpha", CALL(AddString(L"new")));
        add("InsertString -1 appends", false, 3, abcNew, 0, "alpha", CALL(InsertString(-1, L"new")));
        add("InsertString at the front", false, 0, newAbc, 1, "alpha", CALL(InsertString(0, L"new")));
        add("DeleteString", false, 2, abc.mid(1), 0, "beta", CALL(DeleteString(0)));
        add("SelectString", false, 2, abc, 2, "gamma", CALL(SelectString(0, L"GAMMA")));
        add("ResetContent", false, 0, {}, -1, "", CALL(ResetContent(), 0));
        add("SetItemData", false, 0, abc, 0, "alpha", CALL(SetItemData(0, 7)));
        add("Clear", false, 0, {}, -1, "", CALL(Clear(), 0));
        // SetWindowText picks an item only on an exact match; an editable combo shows any text.
        add("SetWindowText, item", false, 0, abc, 1, "beta", CALL(SetWindowText(L"beta"), 0));
        add("SetWindowText, case differs", false, 0, abc, 0, "alpha", CALL(SetWindowText(L"Beta"), 0));
        add("SetWindowText, editable, free text", true, 0, abc, 0, "A rather long free text",
            CALL(SetWindowText(L"A rather long free text"), 0));
        add("SetWindowText, editable, null", true, 0, abc, 0, "", CALL(SetWindowText(nullptr), 0));
    }

    void operations()
    {
        QFETCH(bool, editable);
        QFETCH(int, result);
        QFETCH(QStringList, items);
        QFETCH(int, current);
        QFETCH(QString, text);
        QFETCH(Operation, operation);

        m_combo->setEditable(editable);
        fill(*m_combo, {"alpha", "beta", "gamma"});
        m_combo->setCurrentIndex(0);
        ComboSpies spies(m_combo.get());
        QCOMPARE(operation(*m_combo), result);
        QCOMPARE(itemTexts(*m_combo), items);
        QCOMPARE(m_combo->GetCurSel(), current);
        KtString shown;
        m_combo->GetWindowText(shown);
        QCOMPARE(ktutKtStringToQString(shown), text);
        const bool emits = qstrcmp(QTest::currentDataTag(), "Clear") == 0;
        QCOMPARE(spies.total() > 0, emits);
        if (editable) // long texts show their start
            QCOMPARE(m_combo->GetEditBox()->cursorPosition(), 0);

        // Blocking is switched off afterwards, even when the caller had it on.
        m_combo->blockSignals(true);
        operation(*m_combo);
        QCOMPARE(m_combo->signalsBlocked(), emits);
    }

    void itemsAndBadIndices()
    {
        KtString text;
        fill(*m_combo, {QString::fromUtf8("Wand 𝄞 ü"), "b", "c"});
        m_combo->GetLBText(0, text);
        QCOMPARE(ktutKtStringToQString(text), QString::fromUtf8("Wand 𝄞 ü"));
        for (int bad : {-1, 3, INT_MAX}) {
            text = KtString(L"stale");
            m_combo->GetLBText(bad, text);
            QCOMPARE(ktutKtStringToQString(text), QString());
            QCOMPARE(m_combo->SetItemData(bad, 5), bad);
            QCOMPARE(m_combo->GetItemData(bad), kAllBits);
            QCOMPARE(m_combo->SetCurSel(bad), bad);
            QCOMPARE(m_combo->GetCurSel(), -1);
        }

        QCOMPARE(m_combo->GetItemData(1), kAllBits); // an item without data
        QCOMPARE(m_combo->SetItemData(1, 0x8000000000000001ULL), 1);
        QCOMPARE(m_combo->GetItemData(1), 0x8000000000000001ULL);

        QCOMPARE(m_combo->DeleteString(UINT_MAX), 3);
        QCOMPARE(m_combo->DeleteString(0), 2);
        m_combo->AddString(nullptr);
        QCOMPARE(itemTexts(*m_combo), (QStringList{"b", "c", ""}));
    }

    void search_data()
    {
        QTest::addColumn<QStringList>("items");
        QTest::addColumn<int>("start");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("prefix"); // FindString
        QTest::addColumn<int>("exact"); // FindStringExact
        QTest::addColumn<int>("select"); // SelectString: the start is ignored; numbers match within 1

        const QStringList fruit{"Apple", "apricot", "Banana", "APP", "band"};
        QTest::newRow("-1 searches all, any case") << fruit << -1 << "ap" << 0 << -1 << -1;
        QTest::newRow("start is inclusive") << fruit << 1 << "ap" << 1 << -1 << -1;
        QTest::newRow("exact needs the whole text") << fruit << -1 << "app" << 0 << 3 << 3;
        QTest::newRow("no wrap-around") << fruit << 1 << "apple" << -1 << -1 << 0;
        QTest::newRow("empty text matches the start") << fruit << 3 << "" << 3 << -1 << -1;
        QTest::newRow("null text, empty item") << QStringList{"a", ""} << 0 << QString() << 0 << 1 << 1;
        QTest::newRow("empty combo") << QStringList{} << 0 << "" << -1 << -1 << -1;
        QTest::newRow("differs by -0.9") << QStringList{"1.6"} << -1 << "2.5" << -1 << -1 << 0;
        QTest::newRow("differs by 1") << QStringList{"3.5", "2"} << -1 << "2.5" << -1 << -1 << 1;
        // clang-format off
        QTest::newRow("a word ends number matching") << QStringList{"1.00", "abc", "2"} << -1 << "2.5" << -1 << -1 << -1;
        QTest::newRow("text still matches after a word") << QStringList{"abc", "2.5"} << -1 << "2.5" << 1 << 1 << 1;
        // clang-format on
    }

    void search()
    {
        QFETCH(QStringList, items);
        QFETCH(int, start);
        QFETCH(QString, text);
        QFETCH(int, prefix);
        QFETCH(int, exact);
        QFETCH(int, select);

        fill(*m_combo, items);
        std::wstring store;
        const wchar_t* what = wide(text, store);
        const int last = int(items.size()) - 1;
        m_combo->setCurrentIndex(last);
        ComboSpies spies(m_combo.get());
        QCOMPARE(m_combo->FindString(start, what), prefix);
        QCOMPARE(m_combo->FindStringExact(start, what), exact);
        QCOMPARE(m_combo->GetCurSel(), last); // finding selects nothing
        QCOMPARE(m_combo->SelectString(start, what), select);
        QCOMPARE(m_combo->GetCurSel(), select >= 0 ? select : last);
        QCOMPARE(spies.total(), 0);
        m_combo->setEditable(true); // the texts are read the same way
        QCOMPARE(m_combo->FindString(start, what), prefix);
    }

    void editField()
    {
        // Without an edit field the selection is neither set nor read, and nothing can be sized.
        fill(*m_combo, {"abcdefghij"});
        int start = -9, end = -9;
        QCOMPARE(m_combo->SetEditSel(0, -1), 0);
        m_combo->GetEditSel(start, end);
        QCOMPARE(QPoint(start, end), QPoint(-9, -9));
        QCOMPARE(m_combo->SetItemHeight(-1, 40), -1);

        // The second value is a length; -1 selects all, whatever the start; a negative start
        // removes the selection; a start past the end means the end.
        m_combo->setEditable(true);
        QLineEdit* edit = m_combo->GetEditBox();
        m_combo->SetWindowText(L"abcdefghij");
        for (auto [startChar, endChar, from, to] :
            {std::tuple{2, 5, 2, 7}, {4, -1, 0, 10}, {-5, 3, 0, 0}, {20, 2, 10, 10}}) {
            edit->selectAll();
            QCOMPARE(m_combo->SetEditSel(startChar, endChar), 1);
            m_combo->GetEditSel(start, end);
            QCOMPARE(QPoint(start, end), QPoint(from, to));
        }

        // Only the edit field (-1) can be sized; list items are left alone.
        const int before = edit->maximumHeight();
        QCOMPARE(m_combo->SetItemHeight(0, 30) + m_combo->SetItemHeight(99, 30), 0);
        QCOMPARE(edit->maximumHeight(), before);
        QCOMPARE(m_combo->SetItemHeight(-1, 30), 0);
        QCOMPARE(QPoint(edit->minimumHeight(), edit->maximumHeight()), QPoint(30, 30));
        QCOMPARE(m_combo->SetItemHeight(-1, UINT_MAX), 0); // clamped, not wrapped negative
        QCOMPARE(edit->maximumHeight(), QWIDGETSIZE_MAX);
    }
};

QTEST_MAIN(TestCKtComboBox)
#include "tst_cktcombobox.moc"
