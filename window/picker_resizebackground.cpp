#include "window/picker_resizebackground.h"

#include "window/held_dialog.h"

#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// Qt takes a number above the top as input still being typed; a size field refuses it.
class size_validator : public QIntValidator {
public:
    size_validator(int top, QObject* parent) : QIntValidator(0, top, parent) {}
    State validate(QString& input, int& pos) const override {
        const State state = QIntValidator::validate(input, pos);
        bool ok = false;
        const int value = input.toInt(&ok);
        return state == Intermediate && ok && value > top() ? Invalid : state;
    }
};

} // namespace

picker_resizebackground::picker_resizebackground(QWidget* parent) : QDialog(parent) {
    setModal(true);
    setWindowTitle(tr("Resize Background"));

    resize_button = new QPushButton(tr("Resize"));
    resize_button->setDefault(true);
    cancel_button = new QPushButton(tr("Cancel"));
    connect(resize_button, SIGNAL(clicked(bool)), this, SLOT(accept()));
    connect(cancel_button, SIGNAL(clicked(bool)), this, SLOT(reject()));

    height_edit = new QLineEdit;
    width_edit = new QLineEdit;
    height_edit->setValidator(new size_validator(20000, height_edit));
    width_edit->setValidator(new size_validator(20000, width_edit));

    auto* fields = new QHBoxLayout;
    fields->addWidget(new QLabel(tr("Width: ")));
    fields->addWidget(width_edit);
    fields->addSpacing(10);
    fields->addWidget(new QLabel(tr("Height: ")));
    fields->addWidget(height_edit);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(resize_button);
    buttons->addWidget(cancel_button);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("Resize Background Image:")));
    layout->addLayout(fields);
    layout->addLayout(buttons);
}

QSize ask_background_size() {
    static QSize answer;
    held_dialog<picker_resizebackground> dialog(new picker_resizebackground);
    if (dialog.exec() == QDialog::Accepted && dialog.alive())
        answer = QSize(dialog->width_edit->text().toInt(), dialog->height_edit->text().toInt());
    else
        answer = QSize(0, 0);
    return answer;
}
