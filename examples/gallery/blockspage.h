#pragma once

#include <QWidget>

class BlockPreview;
class KtUiArrowComboBox;
class KtUiPredefBlockComboBox;
class QLabel;
class QRadioButton;

/**
 * A dimension-style dialog: first, second and leader arrowheads and a callout
 * block, the chosen block drawn from the drawing's own entities, a metric or
 * imperial drawing, and the drawing saved as DXF.
 */
class BlocksPage : public QWidget
{
    Q_OBJECT

public:
    explicit BlocksPage(QWidget* parent = nullptr);

private:
    void newDrawing(bool metric);
    void showArrow(KtUiArrowComboBox* combo);
    void showCallout();
    void saveDxf();
    void updateStatus(const QString& message = QString());

    KtUiArrowComboBox* m_first;
    KtUiArrowComboBox* m_second;
    KtUiArrowComboBox* m_leader;
    KtUiPredefBlockComboBox* m_callout;
    QRadioButton* m_metric;
    BlockPreview* m_preview;
    QLabel* m_previewTitle;
    QLabel* m_status;
};
