#include "common/dicaDaPessoa.h"

#include "common/modGeral.h"
#include "platform/forms/controls.h"
#include "platform/forms/showntext.h"

#include <QHelpEvent>
#include <QToolTip>

#include <functional>

namespace {

QString pessoa(const QString& nind)
{
    bool numero = false;
    const double valor = nind.toDouble(&numero);
    if (!numero) return {};
    try {
        const jet::Recordset linha(
            cnBDP, jet::NativeSql("select nome, datanasc, inicioobs, dataobito, fimobs from individuo where nind = ?",
                                  {valor}));
        return linha.eof() ? QString() : linha["nome"].toString() + DatasResumo(linha);
    } catch (const jet::Error&) {
        return {}; // no box comes up because the pointer rests somewhere
    }
}

// Asks for the text when a tool tip is wanted.
class Dica : public QObject
{
public:
    Dica(QWidget* onde, std::function<QString(const QPoint&)> numero) : QObject(onde), numero_(std::move(numero))
    {
        onde->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* objecto, QEvent* evento) override
    {
        if (evento->type() != QEvent::ToolTip) return QObject::eventFilter(objecto, evento);
        const auto* pedido = static_cast<QHelpEvent*>(evento);
        auto* onde = static_cast<QWidget*>(objecto);
        onde->setToolTip(shownTip(pessoa(numero_(pedido->pos()))));
        if (onde->toolTip().isEmpty()) return false; // other columns may have a tip of their own
        QToolTip::showText(pedido->globalPos(), onde->toolTip(), onde);
        return true;
    }

private:
    std::function<QString(const QPoint&)> numero_;
};

} // namespace

void mostraPessoaNaDica(TextBox* numero)
{
    new Dica(numero, [numero](const QPoint&) { return numero->text(); });
}

void mostraPessoaNaDica(Grid* grelha, int coluna)
{
    new Dica(grelha->viewport(), [=](const QPoint& onde) {
        const QModelIndex celula = grelha->indexAt(onde);
        return celula.column() == coluna ? grelha->textMatrix(celula.row() + 1, coluna) : QString();
    });
}
