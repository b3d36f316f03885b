#include "common/modGeral.h"

#include "common/marca.h"
#include "common/numeros.h"
#include "common/resumo.h"
#include "common/splashForm.h"
#include "common/text.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/document.h"
#include "platform/forms/controls.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"

#include <QFileInfo>

#include <new>

void MostraErro(const jet::Error& erro)
{
    if (erro.number == 0) return;
    showMessage(QStringLiteral("Ocorreu o erro %1\r\n%2").arg(QString::number(erro.number), erro.description),
                Icon::Information);
    if (cnBDP.state() == jet::Connection::Executing) cnBDP.rollbackTrans();
}

void MostraErro(const std::exception& erro)
{
    if (const auto* doMotor = dynamic_cast<const jet::Error*>(&erro)) return MostraErro(*doMotor);
    if (dynamic_cast<const std::bad_alloc*>(&erro))
        return MostraErro(jet::Error{jet::number::outOfMemory, "Não há memória suficiente."});
    qWarning("%s", erro.what()); // its words are for who mends the program
    MostraErro(jet::Error{jet::number::internalError,
                          "Erro interno do programa: o que estava a ser feito não foi levado até ao fim."});
}

int ProcuraItemData(ComboBox& lista, const QVariant& valor)
{
    const QString texto = Trim(valor.toString());
    if (texto.isEmpty()) return -1;

    const bool numero = valor.metaType() == QMetaType::fromType<double>();
    const double procurado = numero ? valor.toDouble() : numeroDoTexto(texto);
    for (int i = 0; i < lista.count(); ++i) {
        if (lista.itemData(i) != procurado) continue;
        lista.setListIndex(i);
        return i;
    }
    return -1;
}

int ProcuraTexto(ComboBox& lista, const QVariant& valor)
{
    if (Trim(valor.toString()).isEmpty()) return -1;

    // Kept: only the value searched for loses its "*"; an entry that shows one is never found.
    const QString procurado = Trim(semMarca(valor.toString()));
    for (int i = 0; i < lista.count(); ++i) {
        if (Trim(lista.list(i)) != procurado) continue;
        lista.setListIndex(i);
        return i;
    }
    return -1;
}

void PreencheCombo(ComboBox& lista, jet::Recordset& registos, int colunaTexto, int colunaDados)
{
    lista.clear();
    if (registos.recordCount() == 0) return;

    lista.add("  ");
    for (registos.moveFirst(); !registos.eof(); registos.moveNext()) {
        const int novo = lista.add(requiredText(registos[colunaTexto]));
        if (colunaDados == colunaTexto) continue;
        lista.setItemData(novo, codigoDoTexto(requiredText(registos[colunaDados])));
    }
}

namespace {

// A path as a box shows it, without characters that would turn it round or hide a part.
QString legivel(QString caminho)
{
    for (QChar& letra : caminho)
        if (!letra.isPrint() && !letra.isSurrogate()) letra = QChar::ReplacementCharacter;
    return caminho;
}

// Whether the desktop gets the document; asks or tells the user.
bool podeAbrir(const QString& caminho)
{
    const auto completo = [&] { return legivel(QFileInfo(caminho).absoluteFilePath()); };
    switch (Desktop::documentAt(caminho)) {
    case Desktop::Document::Program:
        showMessage("O ficheiro \"" + completo() +
                    "\" é um programa ou um atalho, e não um documento.\r\nPor segurança não é aberto.");
        return false;
    case Desktop::Document::Elsewhere:
        showMessage("\"" + legivel(caminho) +
                    "\" não é o caminho de um ficheiro deste computador.\r\nPor segurança não é aberto.");
        return false;
    case Desktop::Document::Unknown:
        return ask("O ficheiro \"" + completo() +
                   "\" não é uma imagem, um PDF, um texto ou um documento de escritório.\r\n"
                   "Só deve abri-lo se souber de onde vem. Deseja abri-lo?");
    case Desktop::Document::Missing: // told by the attempt
    case Desktop::Document::Harmless:
        break;
    }
    return true;
}

} // namespace

void AbreFicheiro(const QString& caminho)
{
    if (caminho.isEmpty() || !podeAbrir(caminho)) return;
    const int resultado = [&] {
        const Hourglass ampulheta; // the desktop may take its time
        return Desktop::openDocument(caminho);
    }();
    if (resultado >= 32) return;
    switch (resultado) {
    case Desktop::fileNotFound:
        return showMessage("Não foi possível encontrar o ficheiro!", Icon::None);
    case Desktop::outOfMemory:
        return showMessage("Memória insuficiente!\r\nFeche algumas aplicações!", Icon::None);
    case Desktop::noProgram:
        return showMessage("Este tipo de ficheiro não tem um programa associado!", Icon::None);
    default:
        showMessage(QString::number(resultado) + "Erro inesperado!", Icon::None);
    }
}

void CarregaFichaFam()
{
    splashForm().showStep("A carregar fichas de família. Aguarde por favor ...");
    Forms::load("frmFam");
    splashForm().waitUntilReady();
    if (programEnding()) return;
    Forms::show("frmFam");
    splashForm().unload();
}

QString DatasResumo(const jet::Recordset& registos)
{
    return InicioDaVida(registos) + FimDaVida(registos);
}
