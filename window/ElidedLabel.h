#pragma once
// A label that wraps its text over the lines it has room for and elides the last one on
// the left, so that the end of a long name stays visible.
#include <QFrame>
#include <QString>

class ElidedLabel : public QFrame {
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
    Q_PROPERTY(bool isElided READ isElided)
public:
    explicit ElidedLabel(const QString& text, QWidget* parent = nullptr);

    void setText(const QString& text);
    const QString& text() const { return content; }
    bool isElided() const { return elided; }

signals:
    void elisionChanged(bool elided);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool elided = false;
    QString content;
};
