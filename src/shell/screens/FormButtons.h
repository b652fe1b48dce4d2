#pragma once

#include <QPushButton>
#include <QString>

namespace quillon {

// A push button of a form with its control name, that Enter in another
// control of the form does not press.
inline QPushButton* namedButton(const QString& name, const QString& caption, QWidget* parent)
{
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(name);
    b->setAutoDefault(false);
    return b;
}

}  // namespace quillon
