#include "dialog_answerer.h"

#include "core/session.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

namespace sandbox {

namespace {

QString dialog_text(QDialog* dialog) {
    if (auto* box = qobject_cast<QMessageBox*>(dialog))
        return box->text();
    if (auto* input = qobject_cast<QInputDialog*>(dialog))
        return input->labelText();
    return QString();
}

void answer(QDialog* dialog) {
    // Escape presses the box's escape button, which Qt works out from the buttons' roles.
    if (auto* box = qobject_cast<QMessageBox*>(dialog)) {
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(box, &escape);
        if (!box->isVisible())
            return;
        if (QPushButton* button = box->defaultButton()) {
            button->click();
            return;
        }
    }
    dialog->reject();
}

} // namespace

dialog_answerer::dialog_answerer(QObject* parent) : QObject(parent) {
    qApp->installEventFilter(this);
}

bool dialog_answerer::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show) {
        auto* dialog = qobject_cast<QDialog*>(watched);
        // Answer once the dialog runs its own loop, so that the answer ends that loop.
        if (dialog && dialog->isModal())
            QTimer::singleShot(0, this, &dialog_answerer::answer_active_dialog);
    }
    return QObject::eventFilter(watched, event);
}

void dialog_answerer::answer_active_dialog() {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog)
        return;
    const QString text = dialog_text(dialog);
    QString line = dialog->windowTitle();
    if (!text.isEmpty())
        line += QStringLiteral(": ") + text;
    host::session::get().out.warning(line);
    answer(dialog);
}

} // namespace sandbox
