#pragma once
// The MEL command line: Enter runs the text, Up and Down walk the history.
#include <QLineEdit>
#include <QStringList>

namespace sandbox {

class command_line : public QLineEdit {
    Q_OBJECT
public:
    explicit command_line(QWidget* parent = nullptr);
    const QStringList& history() const { return history_; }

signals:
    void submitted(const QString& mel);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void submit();
    void recall(int step);
    QStringList history_;
    int cursor_ = 0; // == history_.size() while editing a new line
    QString draft_;
};

} // namespace sandbox
