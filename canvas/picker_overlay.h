#pragma once
// Something the canvas paints above all buttons, in widget pixels, untouched by zoom.
class QPainter;

class picker_overlay {
public:
    virtual void paint(QPainter* painter) = 0;
    virtual ~picker_overlay() = default;
};
