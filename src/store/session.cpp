#include "store/session.h"

#include "platform/forms/forms.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenu>

jet::Connection cnBDP;
QString StrLigacao;
QString CodParoquia;
QString CodPais;
QString OperacaoBDP;

namespace {
bool ending = false;
} // namespace

QString ligacaoPara(const QString& caminho)
{
    return "Provider=Microsoft.Jet.OLEDB.4.0; Persist Security Info=False; Data Source= " + caminho;
}

void setSessionMenus(bool enabled)
{
    QWidget* window = Forms::mainWindow();
    window->findChild<QAction*>("mnuEditInd")->setEnabled(enabled);
    window->findChild<QAction*>("mnuEditFam")->setEnabled(enabled);
    window->findChild<QMenu*>("mnuManut")->setEnabled(enabled);
}

QString requiredText(const QVariant& value)
{
    if (value.isNull()) throw jet::Error{jet::number::invalidNull, "Utilização inválida de um valor nulo."};
    return value.toString();
}

void endProgram(int status)
{
    ending = true;
    cnBDP.close();
    QCoreApplication::exit(status);
}

bool programEnding()
{
    return ending;
}
