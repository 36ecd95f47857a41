#pragma once
// A batch run has no user: each modal dialog that opens is printed as a warning with its
// title and text, then answered with its escape button (its default one where it has no
// escape button), so that a script never hangs on a question.
#include <QObject>

namespace sandbox {

class dialog_answerer : public QObject {
    Q_OBJECT
public:
    explicit dialog_answerer(QObject* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void answer_active_dialog();
};

} // namespace sandbox
