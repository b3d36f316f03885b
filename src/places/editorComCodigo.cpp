#include "places/editorComCodigo.h"

#include "common/instrucao.h"
#include "common/modGeral.h"
#include "common/text.h"

void EditorComCodigo::usaCodigo(Codigo codigo, ComboBox* superiores)
{
    codigo_ = std::move(codigo);
    superiores_ = superiores;
    if (!superiores_) return;
    regras_.outros << superiores_;
    connect(superiores_, &ComboBox::clicked, this, &EditorComCodigo::superiores_Click);
}

void EditorComCodigo::preencheSuperiores(jet::Recordset& linhas)
{
    for (; !linhas.eof(); linhas.moveNext()) {
        codigosSuperiores_ << linhas[0].toString();
        superiores_->add(linhas[1].toString() + "  -" + codigosSuperiores_.last());
    }
    if (superiores_->count() > 0) return superiores_->setListIndex(0);
    for (QWidget* comando : QList<QWidget*>{ins_, alt_, elim_} + regras_.outros)
        comando->setEnabled(comando == superiores_);
}

void EditorComCodigo::superiores_Click()
{
    guarded([&] {
        registos_->recordset().setFilter(QString(nivel().superior) + "=" + citado(superior()));
        mostraRegistos();
    });
}

QString EditorComCodigo::superior() const
{
    return superiores_ ? codigosSuperiores_.value(superiores_->listIndex()) : QString();
}

// A number gets its zeros; another text stays as it is.
QString EditorComCodigo::codigoAGravar() const
{
    const QString escrito = Trim(txtCod_->text());
    bool numero = false;
    const QString cheio = QString::number(escrito.toULongLong(&numero)).rightJustified(codigo_.algarismos, '0');
    return (superiores_ ? superior() : QString()) + (numero ? cheio : escrito);
}

bool EditorComCodigo::VerificaCampos(Passo passo)
{
    if (passo == Passo::Insercao) {
        if (Trim(semPlica(txtCod_->text())).isEmpty()) return recusaComTexto(codigo_.emFalta, txtCod_);
        if (!jet::Recordset(cnBDP, instrucaoDoCodigo(codigoAGravar())).eof())
            return recusaComTexto(codigo_.repetido, txtCod_);
    }
    return EditorDeLocais::VerificaCampos(passo);
}
