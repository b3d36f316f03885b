#include "common/campos.h"

#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"

bool recusa(const QString& motivo, QWidget* campo)
{
    showMessage(motivo);
    Focus::setTo(campo);
    return false;
}
