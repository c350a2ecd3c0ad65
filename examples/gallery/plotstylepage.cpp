#include "plotstylepage.h"

#include <CJxPlotStyle>
#include <KtPlotStyleWidgets>
#include <QCheckBox>
#include <QColorDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
#include <QVBoxLayout>
#include <ktstringconversion.h>

using namespace TORV_PLOT_SPECIALLY_SPCAE;

namespace {

// The usual list of plot line weights, in millimetres.
const QVector<double> kStandardWeights = {0.00, 0.05, 0.09, 0.10, 0.13, 0.15, 0.18, 0.20, 0.25, 0.30, 0.35,
    0.40, 0.45, 0.50, 0.53, 0.60, 0.65, 0.70, 0.80, 0.90, 1.00, 1.06, 1.20, 1.40, 1.58, 2.00, 2.11};

struct Sample
{
    const wchar_t* name;
    QColor color;
    KtPs::LineType lineType;
    double weight;
    KtPs::FillStyle fill;
    KtPs::LineJoinStyle join;
    KtPs::LineEndStyle end;
};

const QColor kUseObject;

const Sample kSamples[] = {
    {L"Normal", kUseObject, KtPs::kUseObjectLinetype, -1, KtPs::kUseObjectFillStyle,
        KtPs::kUseObjectJoinStyle, KtPs::kUseObjectEndStyle},
    {L"Walls", QColor(0, 0, 0), KtPs::kSolid, 0.50, KtPs::kSolidFill, KtPs::kMiterJoin, KtPs::kSquareCap},
    {L"Doors", QColor(255, 255, 0), KtPs::kSolid, 0.25, KtPs::kUseObjectFillStyle, KtPs::kRoundJoin,
        KtPs::kRoundCap},
    {L"Hidden", QColor(0, 0, 255), KtPs::kDashed, 0.18, KtPs::kUseObjectFillStyle, KtPs::kUseObjectJoinStyle,
        KtPs::kButtCap},
    {L"Centre lines", QColor(0, 255, 255), KtPs::kLongDashShortDash, 0.13, KtPs::kUseObjectFillStyle,
        KtPs::kUseObjectJoinStyle, KtPs::kButtCap},
    {L"Dimensions", QColor(0, 255, 0), KtPs::kSolid, 0.18, KtPs::kUseObjectFillStyle, KtPs::kMiterJoin,
        KtPs::kButtCap},
    {L"Hatch", QColor(255, 0, 255), KtPs::kSolid, 0.09, KtPs::kCheckerboard, KtPs::kBevelJoin,
        KtPs::kButtCap},
    {L"Phantom", QColor(255, 0, 0), KtPs::kLongDashDotDot, 0.35, KtPs::kUseObjectFillStyle, KtPs::kRoundJoin,
        KtPs::kRoundCap},
    {L"Survey 测量", QColor(128, 64, 0), KtPs::kIsoDashDot, 0.30, KtPs::kDiamonds, KtPs::kDiamondJoin,
        KtPs::kDiamondCap},
    {L"Title block", QColor(0, 0, 0), KtPs::kSolid, 0.70, KtPs::kSolidFill, KtPs::kMiterJoin,
        KtPs::kSquareCap},
};

QString qt(const KtString& text)
{
    return ktutKtStringToQString(text);
}

} // namespace

PlotStylePage::PlotStylePage(QWidget* parent)
    : QWidget(parent)
    , m_list(new KtPsStyleList(this))
    , m_colour(new KtPsTrueColorComboBox(this))
    , m_lineType(new KtPsLineTypeComboBox(this))
    , m_lineWeight(new KtPsLineWeightComboBox(this))
    , m_inches(new QCheckBox(tr("Show inches"), this))
    , m_fill(new KtPsFillStyleComboBox(this))
    , m_join(new KtPsJoinStyleComboBox(this))
    , m_end(new KtPsExtremePointStyleComboBox(this))
    , m_status(new QLabel(this))
{
    for (const Sample& sample : kSamples) {
        auto* style = new CJxPlotStyle(KtString(sample.name));
        style->setColor(sample.color);
        style->setLineType(sample.lineType);
        style->setLineWeight(sample.weight);
        style->setFillStyle(sample.fill);
        style->setLineJoinStyle(sample.join);
        style->setLineEndStyle(sample.end);
        m_list->insertStyleData(m_styles.size(), qt(style->name()), sample.color, style);
        m_styles.append(style);
    }
    QVector<double> weights = kStandardWeights;
    m_lineWeight->setLineWeightList(weights);

    auto* form = new QFormLayout;
    form->addRow(tr("Colour:"), m_colour);
    form->addRow(tr("Line type:"), m_lineType);
    form->addRow(tr("Line weight:"), m_lineWeight);
    form->addRow(QString(), m_inches);
    form->addRow(tr("Fill style:"), m_fill);
    form->addRow(tr("Line join:"), m_join);
    form->addRow(tr("Line end:"), m_end);

    auto* columns = new QHBoxLayout;
    columns->addWidget(m_list);
    columns->addLayout(form, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns, 1);
    layout->addWidget(
        new QLabel(tr("Right-click the list for new, rename and delete. Line type names are "
                      "fixed when the library loads; the other texts follow the language service."),
            this));
    layout->addWidget(m_status);
    m_list->setFixedWidth(200);
    m_status->setWordWrap(true);

    connect(m_list, &QListWidget::currentRowChanged, this, &PlotStylePage::showStyle);
    connect(m_list, &KtPsStyleList::itemMenuRequest, this, &PlotStylePage::showMenu);
    connect(m_colour, QOverload<int>::of(&QComboBox::activated), this, &PlotStylePage::colourChosen);
    connect(m_lineType, QOverload<int>::of(&QComboBox::activated), this, [this](int row) {
        if (CJxPlotStyle* style = currentStyle())
            style->setLineType(m_lineType->getCurrentLineType(row));
        m_list->modifyStyleData(m_list->currentRow(), nullptr);
        updateStatus();
    });
    connect(m_lineWeight, QOverload<int>::of(&QComboBox::activated), this, [this](int row) {
        const int position = int(m_lineWeight->getLineWeight(row));
        if (CJxPlotStyle* style = currentStyle())
            style->setLineWeight(position > 0 ? kStandardWeights.value(position - 1) : -1.0);
        m_list->modifyStyleData(m_list->currentRow(), nullptr);
        updateStatus();
    });
    connect(m_fill, QOverload<int>::of(&QComboBox::activated), this, [this](int row) {
        if (CJxPlotStyle* style = currentStyle())
            style->setFillStyle(m_fill->getCurrentFileStyle(row));
        m_list->modifyStyleData(m_list->currentRow(), nullptr);
        updateStatus();
    });
    connect(m_join, QOverload<int>::of(&QComboBox::activated), this, [this](int row) {
        if (CJxPlotStyle* style = currentStyle())
            style->setLineJoinStyle(m_join->getCurrentJoinStyle(row));
        m_list->modifyStyleData(m_list->currentRow(), nullptr);
        updateStatus();
    });
    connect(m_end, QOverload<int>::of(&QComboBox::activated), this, [this](int row) {
        if (CJxPlotStyle* style = currentStyle())
            style->setLineEndStyle(m_end->getExtremePointStyle(row));
        m_list->modifyStyleData(m_list->currentRow(), nullptr);
        updateStatus();
    });
    connect(m_inches, &QCheckBox::toggled, this, [this](bool inches) {
        m_lineWeight->resetUnit(inches);
        showStyle();
    });

    rebuildList(1);
}

PlotStylePage::~PlotStylePage()
{
    // The list only points at the styles; they are the page's.
    qDeleteAll(m_styles);
}

CJxPlotStyle* PlotStylePage::currentStyle() const
{
    CJxPlotStyle* style = nullptr;
    m_list->getStyleData(m_list->currentRow(), style);
    return style;
}

void PlotStylePage::rebuildList(int currentRow)
{
    m_list->refreshStyleList();
    // The rebuild is silent, so the pickers are brought up to date here.
    m_list->setCurrentRow(qBound(-1, currentRow, m_list->count() - 1));
    showStyle();
}

void PlotStylePage::showStyle()
{
    const CJxPlotStyle* style = currentStyle();
    setEnabled(true);
    for (QWidget* picker : {static_cast<QWidget*>(m_colour), static_cast<QWidget*>(m_lineType),
             static_cast<QWidget*>(m_lineWeight), static_cast<QWidget*>(m_fill),
             static_cast<QWidget*>(m_join), static_cast<QWidget*>(m_end)}) {
        picker->setEnabled(style != nullptr);
    }
    if (!style) {
        updateStatus();
        return;
    }
    if (style->color().isValid())
        m_colour->showSpecialColor(style->color(), false, 0);
    else
        m_colour->setCurrentIndex(0);
    m_lineType->setCurrentLineTypeIndex(style->lineType());
    m_lineWeight->setCurrentLineWeight(int(kStandardWeights.indexOf(style->lineWeight())) + 1);
    m_fill->setCurrentFillStyleIndex(style->fillStyle());
    m_join->setCurrentJoinStyleIndex(style->lineJoinStyle());
    m_end->setCurrentExtremePointStyleIndex(style->lineEndStyle());
    updateStatus();
}

void PlotStylePage::showMenu(bool onItem)
{
    QMenu menu(this);
    menu.addAction(tr("New style"), this, &PlotStylePage::newStyle);
    menu.addAction(tr("Rename..."), this, &PlotStylePage::renameStyle)->setEnabled(onItem);
    menu.addAction(tr("Delete"), this, &PlotStylePage::deleteStyle)
        ->setEnabled(onItem && m_list->currentRow() > 0);
    menu.exec(QCursor::pos());
}

void PlotStylePage::newStyle()
{
    auto* style = new CJxPlotStyle(ktutQStringToKtString(tr("Style %1").arg(m_styles.size() + 1)));
    m_list->insertStyleData(m_styles.size(), qt(style->name()), style->color(), style);
    m_styles.append(style);
    rebuildList(m_styles.size() - 1);
}

void PlotStylePage::renameStyle()
{
    const int row = m_list->currentRow();
    CJxPlotStyle* style = currentStyle();
    if (!style)
        return;
    bool ok = false;
    const QString name = QInputDialog::getText(
        this, tr("Rename plot style"), tr("Name:"), QLineEdit::Normal, qt(style->name()), &ok);
    if (!ok || name.trimmed().isEmpty())
        return;
    style->setName(ktutQStringToKtString(name.trimmed()));
    m_list->renameStyle(row, name.trimmed());
    rebuildList(row);
}

void PlotStylePage::deleteStyle()
{
    const int row = m_list->currentRow();
    CJxPlotStyle* style = currentStyle();
    if (!style || row <= 0)
        return;
    m_list->removeStyleData(row);
    m_styles.removeAt(row);
    delete style;
    rebuildList(row - 1);
}

void PlotStylePage::colourChosen(int row)
{
    const int row0 = m_list->currentRow();
    CJxPlotStyle* style = currentStyle();
    if (!style)
        return;
    QColor color;
    if (row == m_colour->count() - 1) {
        // "Choose colour..." is answered by the dialog, as host dialogs do.
        color = QColorDialog::getColor(style->color().isValid() ? style->color() : Qt::white, this);
        if (!color.isValid()) {
            showStyle();
            return;
        }
        m_colour->showSpecialColor(color, false, 0);
    } else if (row > 0) {
        TrueColorData data;
        m_colour->getCurrentColorData(data);
        color = data.color;
    }
    m_colour->setCurrentIndex(m_colour->currentIndex());
    style->setColor(color);
    // The records have no colour setter: the record is replaced, then marked.
    const bool wasModified = m_list->getStyleDataList().value(row0).modified;
    m_list->removeStyleData(row0);
    m_list->insertStyleData(row0, qt(style->name()), color, style);
    m_list->modifyStyleData(row0, style);
    Q_UNUSED(wasModified)
    rebuildList(row0);
}

void PlotStylePage::updateStatus()
{
    const CJxPlotStyle* style = currentStyle();
    if (!style) {
        m_status->setText(tr("No style selected."));
        return;
    }
    const PlotStyleList record = m_list->getStyleDataList().value(m_list->currentRow());
    const QString weight
        = style->lineWeight() < 0 ? tr("object's") : QString::number(style->lineWeight(), 'f', 2);
    m_status->setText(tr("%1%2: colour %3, line type %4, weight %5 mm, fill %6, join %7, end %8")
                          .arg(qt(style->name()), record.modified ? tr(" (modified)") : QString(),
                              style->color().isValid() ? style->color().name() : tr("object's"))
                          .arg(int(style->lineType()))
                          .arg(weight)
                          .arg(int(style->fillStyle()))
                          .arg(int(style->lineJoinStyle()))
                          .arg(int(style->lineEndStyle())));
}
