#include "host_style.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

namespace sandbox {

void apply_host_style() {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const QColor window(0x44, 0x44, 0x44);
    const QColor base(0x2b, 0x2b, 0x2b);
    const QColor text(0xcc, 0xcc, 0xcc);
    QPalette p;
    p.setColor(QPalette::Window, window);
    p.setColor(QPalette::WindowText, text);
    p.setColor(QPalette::Base, base);
    p.setColor(QPalette::AlternateBase, QColor(0x37, 0x37, 0x37));
    p.setColor(QPalette::ToolTipBase, QColor(0x5d, 0x5d, 0x5d));
    p.setColor(QPalette::ToolTipText, text);
    p.setColor(QPalette::Text, text);
    p.setColor(QPalette::PlaceholderText, QColor(0x80, 0x80, 0x80));
    p.setColor(QPalette::Button, QColor(0x5d, 0x5d, 0x5d));
    p.setColor(QPalette::ButtonText, text);
    p.setColor(QPalette::BrightText, Qt::white);
    p.setColor(QPalette::Highlight, QColor(0x52, 0x85, 0xa6));
    p.setColor(QPalette::HighlightedText, Qt::white);
    p.setColor(QPalette::Link, QColor(0x6f, 0xa8, 0xdc));
    for (auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        p.setColor(QPalette::Disabled, role, QColor(0x80, 0x80, 0x80));
    QApplication::setPalette(p);
}

} // namespace sandbox
