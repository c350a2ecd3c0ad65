// Tests of CKtComboBox, CKtEdit and CKtRichEditCtrl: item operations and their
// signal blocking, the searches, the edit field, and window texts.

#include <CKtComboBox>
#include <CKtEdit>
#include <CKtRichEditCtrl>
#include <KtItemRole>
#include <ktstringconversion.h>

#include <QLineEdit>
#include <QSignalSpy>
#include <QTextBlock>
#include <QTextCursor>
#include <QtTest>

#include <climits>
#include <functional>
#include <memory>
#include <string>

namespace {

constexpr unsigned long long kAllBits = ~0ULL;

// Holds the wide form of a QString; a null QString stands for a null pointer.
struct Wide
{
    explicit Wide(const QString& text)
        : null(text.isNull())
        , text(text.toStdWString())
    { }
    operator const wchar_t*() const { return null ? nullptr : text.c_str(); }
    bool null;
    std::wstring text;
};

QStringList itemTexts(const QComboBox& combo)
{
    QStringList result;
    for (int i = 0; i < combo.count(); ++i)
        result << combo.itemText(i);
    return result;
}

void fill(CKtComboBox& combo, const QStringList& items)
{
    for (const QString& item : items)
        combo.AddString(Wide(item));
}

QString qt(const KtString& text)
{
    return ktutKtStringToQString(text);
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

private Q_SLOTS:
    void init() { m_combo = std::make_unique<CKtComboBox>(nullptr); }
    void cleanup() { m_combo.reset(); }

    void addKeepsSelection_data();
    void addKeepsSelection();
    void insertString_data();
    void insertString();
    void signalBlocking_data();
    void signalBlocking();
    void itemsAndBadIndices();
    void find_data();
    void find();
    void selectString_data();
    void selectString();
    void windowText_data();
    void windowText();
    void editSelection_data();
    void editSelection();
    void editFieldOnly();
    void edit();
    void richEditHeading_data();
    void richEditHeading();

private:
    std::unique_ptr<CKtComboBox> m_combo;
};

void TestCKtComboBox::addKeepsSelection_data()
{
    QTest::addColumn<bool>("editable");
    QTest::addColumn<int>("current");
    QTest::newRow("non-editable, empty") << false << -1;
    QTest::newRow("editable, empty") << true << -1;
    QTest::newRow("non-editable, second current") << false << 1;
}

void TestCKtComboBox::addKeepsSelection()
{
    QFETCH(bool, editable);
    QFETCH(int, current);
    m_combo->setEditable(editable);
    if (current >= 0) {
        fill(*m_combo, {"a", "b"});
        m_combo->setCurrentIndex(current);
    } else if (editable) {
        m_combo->lineEdit()->setText("typed");
    }
    QCOMPARE(m_combo->GetCount(), current >= 0 ? 2 : -1);

    ComboSpies spies(m_combo.get());
    std::unique_ptr<QSignalSpy> lineEditSpy;
    if (editable)
        lineEditSpy = std::make_unique<QSignalSpy>(m_combo->lineEdit(), &QLineEdit::textChanged);
    const int first = m_combo->AddString(L"x");
    QCOMPARE(m_combo->GetCount(), first + 1);
    QCOMPARE(m_combo->AddString(L"y"), first + 1);
    QCOMPARE(m_combo->GetCount(), first + 2);
    QCOMPARE(m_combo->GetCurSel(), current);
    if (editable && current < 0)
        QCOMPARE(m_combo->currentText(), QStringLiteral("typed"));
    QCOMPARE(spies.total(), 0);
    QCOMPARE(lineEditSpy ? lineEditSpy->count() : 0, 0);
}

void TestCKtComboBox::insertString_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("result");
    QTest::addColumn<QStringList>("items");
    QTest::addColumn<int>("current");

    // Start: a, b, c with b current. The current item is followed, not restored.
    QTest::newRow("-1 appends") << -1 << 3 << QStringList{"a", "b", "c", "new"} << 1;
    QTest::newRow("front") << 0 << 0 << QStringList{"new", "a", "b", "c"} << 2;
    QTest::newRow("end") << 3 << 3 << QStringList{"a", "b", "c", "new"} << 1;
    QTest::newRow("past the end: clamped, echoed") << 10 << 10 << QStringList{"a", "b", "c", "new"} << 1;
    QTest::newRow("negative: clamped, echoed") << -5 << -5 << QStringList{"new", "a", "b", "c"} << 2;
    QTest::newRow("INT_MIN") << INT_MIN << INT_MIN << QStringList{"new", "a", "b", "c"} << 2;
}

void TestCKtComboBox::insertString()
{
    QFETCH(int, index);
    QFETCH(int, result);
    QFETCH(QStringList, items);
    QFETCH(int, current);

    fill(*m_combo, {"a", "b", "c"});
    m_combo->SetCurSel(1);
    ComboSpies spies(m_combo.get());
    QCOMPARE(m_combo->InsertString(index, L"new"), result);
    QCOMPARE(itemTexts(*m_combo), items);
    QCOMPARE(m_combo->GetCurSel(), current);
    QCOMPARE(spies.total(), 0);
    QVERIFY(!m_combo->itemData(items.indexOf("new"), KtItemRole::ItemData).isValid());

    CKtComboBox empty;
    QCOMPARE(empty.InsertString(index, L"only"), index == -1 ? 0 : index);
    QCOMPARE(empty.GetCurSel(), 0); // Qt's choice is kept for inserts
}

void TestCKtComboBox::signalBlocking_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<bool>("editable");
    QTest::addColumn<bool>("emits");

    for (bool editable : {false, true}) {
        const char* kind = editable ? "editable" : "non-editable";
        for (const char* op : {"SetCurSel", "AddString", "InsertString", "DeleteString", "SelectString",
                 "ResetContent", "SetWindowText", "SetItemData"})
            QTest::addRow("%s, %s", op, kind) << QString(op) << editable << false;
        QTest::addRow("Clear, %s", kind) << "Clear" << editable << true;
    }
}

void TestCKtComboBox::signalBlocking()
{
    QFETCH(QString, operation);
    QFETCH(bool, editable);
    QFETCH(bool, emits);

    // Each operation changes the current index or text as Qt sees it, so a
    // plain QComboBox call would be heard: adding only does so on an empty combo.
    m_combo->setEditable(editable);
    if (operation != "AddString") {
        fill(*m_combo, {"alpha", "beta", "gamma"});
        m_combo->setCurrentIndex(0);
    }
    const QHash<QString, std::function<void()>> operations{
        {"SetCurSel", [&] { m_combo->SetCurSel(2); }},
        {"AddString", [&] { m_combo->AddString(L"delta"); }},
        {"InsertString", [&] { m_combo->InsertString(0, L"delta"); }},
        {"DeleteString", [&] { m_combo->DeleteString(0); }},
        {"SelectString", [&] { m_combo->SelectString(0, L"GAMMA"); }},
        {"ResetContent", [&] { m_combo->ResetContent(); }},
        {"SetWindowText", [&] { m_combo->SetWindowText(L"beta"); }},
        {"SetItemData", [&] { m_combo->SetItemData(0, 7); }},
        {"Clear", [&] { m_combo->Clear(); }},
    };

    ComboSpies spies(m_combo.get());
    operations[operation]();
    QCOMPARE(spies.total() > 0, emits);

    // Blocking is switched off afterwards, even when the caller had it on.
    m_combo->blockSignals(true);
    operations[operation]();
    QCOMPARE(m_combo->signalsBlocked(), emits);
    m_combo->blockSignals(false);

    // The user's own choice still reaches the dialog.
    fill(*m_combo, {"one", "two"});
    m_combo->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_combo.get()));
    m_combo->SetCurSel(0);
    spies.index.clear();
    QTest::keyClick(m_combo.get(), Qt::Key_Down);
    QCOMPARE(spies.index.count(), 1);
}

void TestCKtComboBox::itemsAndBadIndices()
{
    KtString text(L"stale");
    m_combo->GetLBText(0, text);
    QCOMPARE(qt(text), QString());
    QCOMPARE(m_combo->GetItemData(0), kAllBits);
    QCOMPARE(m_combo->DeleteString(0), 0);
    QCOMPARE(m_combo->SetCurSel(3), 3);
    QCOMPARE(m_combo->GetCurSel(), -1);

    fill(*m_combo, {QString::fromUtf8("Wand 𝄞 ü"), "b", "c"});
    m_combo->GetLBText(0, text);
    QCOMPARE(qt(text), QString::fromUtf8("Wand 𝄞 ü"));
    for (int bad : {-1, 3, INT_MAX}) {
        text = KtString(L"stale");
        m_combo->GetLBText(bad, text);
        QCOMPARE(qt(text), QString());
        QCOMPARE(m_combo->SetItemData(bad, 5), bad);
        QCOMPARE(m_combo->GetItemData(bad), kAllBits);
        QCOMPARE(m_combo->SetCurSel(bad), bad);
        QCOMPARE(m_combo->GetCurSel(), -1);
    }

    QCOMPARE(m_combo->GetItemData(1), kAllBits);
    QCOMPARE(m_combo->SetItemData(1, 0x8000000000000001ULL), 1);
    QCOMPARE(m_combo->GetItemData(1), 0x8000000000000001ULL);
    QCOMPARE(m_combo->itemData(1, KtItemRole::ItemData).userType(), int(QMetaType::ULongLong));
    m_combo->setItemData(2, QStringLiteral("not a number"), KtItemRole::ItemData);
    QCOMPARE(m_combo->GetItemData(2), kAllBits);

    QCOMPARE(m_combo->DeleteString(7), 3);
    QCOMPARE(m_combo->DeleteString(UINT_MAX), 3);
    QCOMPARE(m_combo->DeleteString(0), 2);
    QCOMPARE(itemTexts(*m_combo), (QStringList{"b", "c"}));
    QCOMPARE(m_combo->GetItemData(0), 0x8000000000000001ULL); // data moves with its item

    m_combo->AddString(nullptr);
    QCOMPARE(itemTexts(*m_combo), (QStringList{"b", "c", ""}));
}

void TestCKtComboBox::find_data()
{
    QTest::addColumn<QStringList>("items");
    QTest::addColumn<int>("start");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("prefix");
    QTest::addColumn<int>("exact");

    const QStringList fruit{"Apple", "apricot", "Banana", "APP", "band"};
    QTest::newRow("-1 searches all, any case") << fruit << -1 << "ap" << 0 << -1;
    QTest::newRow("start is inclusive") << fruit << 1 << "ap" << 1 << -1;
    QTest::newRow("later match") << fruit << 2 << "ap" << 3 << -1;
    QTest::newRow("no wrap-around") << fruit << 4 << "ap" << -1 << -1;
    QTest::newRow("exact needs the whole text") << fruit << -1 << "app" << 0 << 3;
    QTest::newRow("exact, any case") << fruit << -1 << "APPLE" << 0 << 0;
    QTest::newRow("exact, no wrap-around") << fruit << 1 << "apple" << -1 << -1;
    QTest::newRow("exact at the start") << fruit << 3 << "app" << 3 << 3;
    QTest::newRow("case of the text") << fruit << 0 << "BAN" << 2 << -1;
    QTest::newRow("start == count") << fruit << 5 << "a" << -1 << -1;
    QTest::newRow("start past the end") << fruit << 100 << "a" << -1 << -1;
    QTest::newRow("start INT_MAX") << fruit << INT_MAX << "a" << -1 << -1;
    QTest::newRow("start below -1") << fruit << -7 << "band" << 4 << 4;
    QTest::newRow("start INT_MIN") << fruit << INT_MIN << "apple" << 0 << 0;
    QTest::newRow("empty text matches the start") << fruit << 3 << "" << 3 << -1;
    QTest::newRow("empty text from -1") << fruit << -1 << "" << 0 << -1;
    QTest::newRow("null text") << fruit << 2 << QString() << 2 << -1;
    QTest::newRow("longer than the items") << fruit << -1 << "apricots" << -1 << -1;
    QTest::newRow("empty item") << QStringList{"x", ""} << -1 << "" << 0 << 1;
    QTest::newRow("non-ASCII case") << QStringList{"straße", "ÄRGER"} << -1 << "ärg" << 1 << -1;
    QTest::newRow("empty combo") << QStringList{} << -1 << "a" << -1 << -1;
    QTest::newRow("empty combo, empty text") << QStringList{} << 0 << "" << -1 << -1;
}

void TestCKtComboBox::find()
{
    QFETCH(QStringList, items);
    QFETCH(int, start);
    QFETCH(QString, text);
    QFETCH(int, prefix);
    QFETCH(int, exact);

    fill(*m_combo, items);
    QCOMPARE(m_combo->FindString(start, Wide(text)), prefix);
    QCOMPARE(m_combo->FindStringExact(start, Wide(text)), exact);
    m_combo->setEditable(true); // the texts are read the same way
    QCOMPARE(m_combo->FindString(start, Wide(text)), prefix);
    QCOMPARE(m_combo->GetCurSel(), -1); // searching selects nothing
}

void TestCKtComboBox::selectString_data()
{
    QTest::addColumn<QStringList>("items");
    QTest::addColumn<int>("start");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("expected");

    QTest::newRow("text, any case") << QStringList{"a", "b"} << 1 << "A" << 0;
    QTest::newRow("start is ignored") << QStringList{"a", "b"} << 5 << "a" << 0;
    QTest::newRow("no prefix match") << QStringList{"abc"} << -1 << "ab" << -1;
    QTest::newRow("differs by 0.4") << QStringList{"2.9"} << -1 << "2.5" << 0;
    QTest::newRow("differs by -0.9") << QStringList{"1.6"} << -1 << "2.5" << 0;
    QTest::newRow("differs by 1") << QStringList{"3.5", "2"} << -1 << "2.5" << 1;
    QTest::newRow("a word ends number matching") << QStringList{"1.00", "abc", "2"} << -1 << "2.5" << -1;
    QTest::newRow("text still matches after a word") << QStringList{"abc", "2.5"} << -1 << "2.5" << 1;
    QTest::newRow("number spellings") << QStringList{"1e1"} << -1 << "10.0" << 0;
    QTest::newRow("text is no number") << QStringList{"2"} << -1 << "two" << -1;
    QTest::newRow("empty text") << QStringList{"a", ""} << 0 << "" << 1;
    QTest::newRow("null text") << QStringList{"a", ""} << 0 << QString() << 1;
    QTest::newRow("empty combo") << QStringList{} << 0 << "a" << -1;
}

void TestCKtComboBox::selectString()
{
    QFETCH(QStringList, items);
    QFETCH(int, start);
    QFETCH(QString, text);
    QFETCH(int, expected);

    fill(*m_combo, items);
    const int last = int(items.size()) - 1;
    m_combo->setCurrentIndex(last);
    ComboSpies spies(m_combo.get());
    QCOMPARE(m_combo->SelectString(start, Wide(text)), expected);
    QCOMPARE(m_combo->GetCurSel(), expected >= 0 ? expected : last);
    QCOMPARE(spies.total(), 0);
}

void TestCKtComboBox::windowText_data()
{
    QTest::addColumn<bool>("editable");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("current");
    QTest::addColumn<QString>("shown");

    // Items: "Alpha", "Beta"; "Alpha" is current.
    QTest::newRow("item") << false << "Beta" << 1 << "Beta";
    QTest::newRow("item, case differs") << false << "beta" << 0 << "Alpha";
    QTest::newRow("no such item") << false << "Gamma" << 0 << "Alpha";
    QTest::newRow("editable, item") << true << "Beta" << 1 << "Beta";
    QTest::newRow("editable, case differs") << true << "beta" << 0 << "beta";
    QTest::newRow("editable, free text")
        << true << "A rather long free text" << 0 << "A rather long free text";
    QTest::newRow("editable, null") << true << QString() << 0 << "";
}

void TestCKtComboBox::windowText()
{
    QFETCH(bool, editable);
    QFETCH(QString, text);
    QFETCH(int, current);
    QFETCH(QString, shown);

    m_combo->setEditable(editable);
    fill(*m_combo, {"Alpha", "Beta"});
    m_combo->setCurrentIndex(0);
    ComboSpies spies(m_combo.get());
    m_combo->SetWindowText(Wide(text));
    QCOMPARE(m_combo->GetCurSel(), current);
    KtString result;
    m_combo->GetWindowText(result);
    QCOMPARE(qt(result), shown);
    QCOMPARE(spies.total(), 0);
    if (editable)
        QCOMPARE(m_combo->GetEditBox()->cursorPosition(), 0);
}

void TestCKtComboBox::editSelection_data()
{
    QTest::addColumn<int>("startChar");
    QTest::addColumn<int>("endChar");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");

    // Text "abcdefghij", all selected before each call.
    QTest::newRow("second value is a length") << 2 << 5 << 2 << 7;
    QTest::newRow("length past the end") << 8 << 5 << 8 << 10;
    QTest::newRow("select all") << 0 << -1 << 0 << 10;
    QTest::newRow("select all from 4") << 4 << -1 << 0 << 10;
    QTest::newRow("-1 removes the selection") << -1 << 0 << 0 << 0;
    QTest::newRow("other negative start") << -5 << 3 << 0 << 0;
    QTest::newRow("zero length: caret only") << 3 << 0 << 3 << 3;
    QTest::newRow("negative length selects backwards") << 3 << -2 << 1 << 3;
    QTest::newRow("start past the end") << 20 << 2 << 10 << 10;
}

void TestCKtComboBox::editSelection()
{
    QFETCH(int, startChar);
    QFETCH(int, endChar);
    QFETCH(int, start);
    QFETCH(int, end);

    m_combo->setEditable(true);
    m_combo->SetWindowText(L"abcdefghij");
    m_combo->GetEditBox()->selectAll();
    QCOMPARE(m_combo->SetEditSel(startChar, endChar), 1);
    int gotStart = -9, gotEnd = -9;
    m_combo->GetEditSel(gotStart, gotEnd);
    QCOMPARE(gotStart, start);
    QCOMPARE(gotEnd, end);
}

void TestCKtComboBox::editFieldOnly()
{
    fill(*m_combo, {"a"});
    QCOMPARE(m_combo->GetEditBox(), nullptr);
    QCOMPARE(m_combo->SetEditSel(0, -1), 0);
    QCOMPARE(m_combo->SetItemHeight(-1, 40), -1);
    int start = 42, end = 43;
    m_combo->GetEditSel(start, end);
    QCOMPARE(start, 42);
    QCOMPARE(end, 43);

    // Editable: only the edit field (-1) can be sized; list items are left alone.
    m_combo->setEditable(true);
    QLineEdit* edit = m_combo->GetEditBox();
    const int before = edit->maximumHeight();
    QCOMPARE(m_combo->SetItemHeight(0, 30), 0);
    QCOMPARE(m_combo->SetItemHeight(99, 30), 0);
    QCOMPARE(edit->maximumHeight(), before);
    QCOMPARE(m_combo->SetItemHeight(-1, 30), 0);
    QCOMPARE(edit->minimumHeight(), 30);
    QCOMPARE(edit->maximumHeight(), 30);
    QCOMPARE(m_combo->SetItemHeight(-1, UINT_MAX), 0); // clamped, not wrapped negative
    QCOMPARE(edit->maximumHeight(), QWIDGETSIZE_MAX);
}

void TestCKtComboBox::edit()
{
    CKtEdit edit(nullptr);
    QSignalSpy spy(&edit, &QLineEdit::textChanged);
    edit.SetWindowText(L"Wand 𝄞 ü");
    QCOMPARE(spy.count(), 1); // not blocked: dialogs validate in textChanged
    QCOMPARE(spy.at(0).at(0).toString(), QString::fromUtf8("Wand 𝄞 ü"));
    KtString text;
    edit.GetWindowText(text);
    QCOMPARE(qt(text), QString::fromUtf8("Wand 𝄞 ü"));
    edit.SetWindowText(nullptr);
    QCOMPARE(edit.text(), QString());
    QCOMPARE(spy.count(), 2);

    // User typing is reported as well.
    QTest::keyClicks(&edit, "ab");
    edit.GetWindowText(text);
    QCOMPARE(qt(text), QStringLiteral("ab"));
}

void TestCKtComboBox::richEditHeading_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("heading");
    QTest::addColumn<int>("caret");
    QTest::addColumn<QString>("plain");
    QTest::addColumn<bool>("pixelFont");

    QTest::newRow("two lines") << "Title\nBody"
                               << "Title" << 6 << "Title\nBody" << false;
    QTest::newRow("pixel-sized font") << "Title\nBody"
                                      << "Title" << 6 << "Title\nBody" << true;
    QTest::newRow("CR LF") << "Head\r\nBody"
                           << "Head" << 5 << "Head\nBody" << false;
    QTest::newRow("one line: caret after it") << "Only"
                                              << "Only" << 4 << "Only" << false;
    QTest::newRow("empty") << ""
                           << "" << 0 << "" << false;
    QTest::newRow("null") << QString() << "" << 0 << "" << false;
}

void TestCKtComboBox::richEditHeading()
{
    QFETCH(QString, text);
    QFETCH(QString, heading);
    QFETCH(int, caret);
    QFETCH(QString, plain);
    QFETCH(bool, pixelFont);

    CKtRichEditCtrl rich(nullptr);
    qreal body = rich.font().pointSizeF();
    if (pixelFont) {
        QFont font = rich.font();
        font.setPixelSize(20);
        rich.setFont(font);
        body = 20 * 72.0 / rich.logicalDpiY(); // the heading still grows by 6 points
    }
    QVERIFY(body > 0);
    rich.setPlainText("old text that is replaced");
    rich.SetWindowText(Wide(text));

    KtString result;
    rich.GetWindowText(result);
    QCOMPARE(qt(result), plain);
    QCOMPARE(rich.textCursor().position(), caret);
    QVERIFY(!rich.textCursor().hasSelection());

    const QTextBlock first = rich.document()->firstBlock();
    QCOMPARE(first.text(), heading);
    for (int pos = 1; pos <= heading.size(); ++pos) {
        QTextCursor at(rich.document());
        at.setPosition(pos); // the format of the character before the cursor
        QCOMPARE(at.charFormat().fontWeight(), int(QFont::Bold));
        QCOMPARE(at.charFormat().fontPointSize(), body + 6);
    }
    if (first.next().length() > 1) {
        QTextCursor at(first.next());
        at.movePosition(QTextCursor::NextCharacter);
        QVERIFY(at.charFormat().fontWeight() != QFont::Bold);
        QVERIFY(at.charFormat().fontPointSize() < body + 6);
    }
}

QTEST_MAIN(TestCKtComboBox)
#include "tst_cktcombobox.moc"
