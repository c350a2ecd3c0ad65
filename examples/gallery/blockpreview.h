#pragma once

#include <QWidget>
#include <ktdbobject.h>

/// Draws one block definition of the drawing from its own entities, fitted to the widget.
class BlockPreview : public QWidget
{
    Q_OBJECT

public:
    explicit BlockPreview(QWidget* parent = nullptr);

    /// Shows block @p id; a null id shows @p placeholder instead.
    void setBlock(KtDbObjectId id, const QString& placeholder = QString());

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    KtDbObjectId m_block;
    QString m_placeholder;
};
