#include "store/sessionChange.h"

#include "common/modGeral.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/showntext.h"
#include "store/modBD.h"
#include "store/session.h"

namespace {
std::function<void()> beginAnew;
QString caption;
// "", or the name of the parish, which is the one under study from now on.
QString parishOfTheBdp()
{
    jet::Recordset parish(cnBDP, "select cod, nome, pais from infopar");
    if (parish.eof()) return {};
    CodParoquia = requiredText(parish["cod"]);
    CodPais = parish["Pais"].isNull() ? "PT" : parish["Pais"].toString();
    return requiredText(parish["Nome"]);
}
} // namespace

void clearSession()
{
    Forms::unloadAll();
    if (beginAnew) beginAnew(); // a search left behind would bar every insert in the next BDP
}

void changeSession(const QString& bdp)
{
    clearSession();
    setSessionCaption(shortTitle);
    setSessionMenus(false);
    CodParoquia.clear();
    CodPais.clear();
    if (!AbreBDP(bdp)) return;
    const QString parish = parishOfTheBdp();
    if (parish.isEmpty()) {
        cnBDP.close();
        return showMessage("A BDP não tem paróquia. Abra-a no menu \"BDParoquial\", onde a escolhe.");
    }
    setSessionMenus(true);
    setSessionCaption(longTitle + parish);
    CarregaFichaFam();
}

void onClearSession(std::function<void()> begin)
{
    beginAnew = std::move(begin);
}

void setSessionCaption(const QString& text)
{
    caption = text;
    if (QWidget* window = Forms::mainWindow()) window->setWindowTitle(shownText(caption, 500));
}

QString sessionCaption()
{
    return caption;
}
