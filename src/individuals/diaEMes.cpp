#include "individuals/diaEMes.h"

#include "common/datas.h"
#include "platform/forms/msgbox.h"

void mostraDiaEMes(const QString& data)
{
    const bool valida = eData(data);
    showMessage((valida ? data.mid(0, 2) : data) + " ----" + (valida ? data.mid(3, 2) : data), Icon::None, {});
}
