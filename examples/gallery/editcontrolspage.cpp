#include "editcontrolspage.h"

#include <CKtComboBox>
#include <CKtEdit>
#include <CKtRichEditCtrl>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <ktstringconversion.h>

namespace {

struct TextStyle
{
    const wchar_t* name;
    const wchar_t* description;
    unsigned long long id;
};

const TextStyle kStyles[] = {
    {L"Standard", L"Body text for notes and labels.", 0x11},
    {L"Annotative", L"Scales with the viewport so that plotted text keeps its paper height.", 0x12},
    {L"Title block", L"Large capitals for drawing titles and sheet numbers.", 0x13},
    {L"Dimension", L"Used by dimension styles for measured values.", 0x14},
    {L"Notes 注释", L"Body text with a CJK fallback font.", 0x15},
};

QString qt(const KtString& text)
{
    return ktutKtStringToQString(text);
}

} // namespace

EditControlsPage::EditControlsPage(QWidget* parent)
    : QWidget(parent)
    , m_styles(new CKtComboBox(this))
    , m_heights(new CKtComboBox(this))
    , m_find(new CKtEdit(this))
    , m_preview(new CKtRichEditCtrl(this))
    , m_status(new QLabel(this))
{
    m_heights->setEditable(true);
    m_heights->setInsertPolicy(QComboBox::NoInsert);
    m_find->setPlaceholderText(tr("Start of a style name"));
    m_find->setClearButtonEnabled(true);
    m_preview->setReadOnly(true);

    auto* reset = new QPushButton(tr("Reset styles"), this);
    auto* selectAll = new QPushButton(tr("Select height text"), this);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(reset);
    buttons->addWidget(selectAll);
    buttons->addStretch();

    auto* form = new QFormLayout;
    form->addRow(tr("Text style:"), m_styles);
    form->addRow(tr("Find style:"), m_find);
    form->addRow(tr("Height:"), m_heights);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(m_preview, 1);
    layout->addLayout(buttons);
    layout->addWidget(m_status);

    fillStyles();
    for (const wchar_t* height : {L"1.8", L"2.5", L"3.5", L"5", L"7", L"10"})
        m_heights->AddString(height);
    m_heights->SetWindowText(L"3.5");
    m_heights->SetItemHeight(-1, 26);
    m_find->SetWindowText(L"");

    // Only the user's own changes arrive here; the page's calls are silent.
    connect(
        m_styles, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &EditControlsPage::showPreview);
    connect(m_heights, &QComboBox::editTextChanged, this, &EditControlsPage::showPreview);
    connect(m_heights->GetEditBox(), &QLineEdit::editingFinished, this, &EditControlsPage::matchHeight);
    connect(m_find, &QLineEdit::textChanged, this, &EditControlsPage::findStyle);
    connect(reset, &QPushButton::clicked, this, [this] {
        fillStyles();
        showPreview();
    });
    connect(selectAll, &QPushButton::clicked, this, [this] {
        m_heights->SetEditSel(0, -1);
        m_heights->setFocus();
        showPreview();
    });
    showPreview();
}

void EditControlsPage::fillStyles()
{
    m_styles->ResetContent();
    for (const TextStyle& style : kStyles) {
        const int index = m_styles->AddString(style.name);
        m_styles->SetItemData(index, style.id);
    }
    // AddString() leaves the selection alone, so the first style is picked explicitly.
    m_styles->SetCurSel(0);
}

void EditControlsPage::findStyle()
{
    KtString typed;
    m_find->GetWindowText(typed);
    const int index = m_styles->FindString(-1, typed.c_str());
    if (index != CB_ERR)
        m_styles->SetCurSel(index);
    showPreview();
}

void EditControlsPage::matchHeight()
{
    // A typed value snaps to a listed height within 1 of it (SelectString()'s
    // numeric match); the field then shows the listed value.
    KtString typed;
    m_heights->GetWindowText(typed);
    m_heights->SelectString(-1, typed.c_str());
    showPreview();
}

void EditControlsPage::showPreview()
{
    const int style = m_styles->GetCurSel();
    KtString name, height;
    m_styles->GetLBText(style, name);
    m_heights->GetWindowText(height);

    const TextStyle* info = nullptr;
    for (const TextStyle& s : kStyles) {
        if (m_styles->GetItemData(style) == s.id)
            info = &s;
    }
    KtString text;
    text.format(
        L"%ls\n%ls\nHeight %ls mm.", name.c_str(), info ? info->description : L"(no style)", height.c_str());
    m_preview->SetWindowText(text.c_str());

    int selStart = 0, selEnd = 0;
    m_heights->GetEditSel(selStart, selEnd);
    m_status->setText(tr("%1 styles, style %2 (id 0x%3); height %4 (list item %5), edit selection %6-%7")
                          .arg(m_styles->GetCount())
                          .arg(style)
                          .arg(m_styles->GetItemData(style), 0, 16)
                          .arg(qt(height))
                          .arg(m_heights->GetCurSel())
                          .arg(selStart)
                          .arg(selEnd));
}
