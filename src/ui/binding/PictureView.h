// A picture as a person meets it: shown whole, dropped on, chosen, taken away.
#pragma once

#include <QWidget>

#include <memory>

namespace zolt {

class ImageView;

/// Main thread.
class PictureView : public QWidget
{
    Q_OBJECT

public:
    explicit PictureView(QWidget* parent = nullptr);

    /// From now on shows the model's picture, and hands it what a person drops, pastes, chooses (Return) or takes away
    /// (Delete).
    void setModel(const std::shared_ptr<ImageView>& model) { model_ = model; }
    QSize sizeHint() const override { return {160, 160}; }
    QSize minimumSizeHint() const override { return {80, 80}; }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void choose();
    void take(const QString& file);
    void paste();
    void clear();

    std::shared_ptr<ImageView> model_;
};

} // namespace zolt
