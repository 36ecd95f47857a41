#pragma once
// A layout that places its items left to right and wraps them onto new lines. The eighth
// item stretches to the right edge, which is how the toolbox's label row fills its line.
#include <QLayout>
#include <QList>
#include <QStyle>

class FlowLayout : public QLayout {
    Q_OBJECT
public:
    // A negative spacing leaves it to the style; a negative margin keeps the default.
    explicit FlowLayout(QWidget* parent = nullptr, int margin = -1, int h_spacing = -1,
                        int v_spacing = -1);
    ~FlowLayout() override;

    void addItem(QLayoutItem* item) override;
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    int count() const override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    Qt::Orientations expandingDirections() const override;
    void setGeometry(const QRect& rect) override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;

private:
    int do_layout(const QRect& rect, bool test_only) const;
    int spacing_for(QLayoutItem* item, Qt::Orientation orientation) const;
    int smart_spacing(QStyle::PixelMetric metric) const;

    QList<QLayoutItem*> items;
    int horizontal_spacing;
    int vertical_spacing;
};
