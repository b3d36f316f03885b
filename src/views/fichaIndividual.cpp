#include "views/fichaIndividual.h"

#include "common/datas.h"
#include "common/instrucao.h"
#include "common/locais.h"
#include "common/modGeral.h"
#include "common/numeros.h"
#include "common/text.h"
#include "platform/desktop/desktop.h"
#include "platform/forms/msgbox.h"
#include "views/rtfDocument.h"

namespace {

// Kept: the "order by" names a table that the statement doesn't have, so the engine refuses it, and the parents stay
// blank.
QString nomesDosPais(const QString& familia)
{
    jet::Recordset pais(cnBDP, "select nome, sexo from  individuo, familia, familias where "
                               " individuo.nind = familias.nind and familias.nfamilia = " +
                                   chaveEmSQL(familia) + " order by pais.sexo desc");
    if (pais.eof()) return {};
    const QString nome = pais[0].toString();
    pais.moveNext();
    return pais.eof() ? nome : nome + " e de " + pais[0].toString();
}

// If a mark isn't found, its text goes where the last one ended.
void SubstituiMarca(RtfDocument& ficha, const QString& marca, const QString& texto)
{
    ficha.find(marca);
    ficha.paste(texto);
}

void preenche(RtfDocument& ficha, const jet::Recordset& pessoa)
{
    const auto data = [&](const char* campo) {
        return pessoa[campo].isNull() ? QString(" ") : textoDaData(pessoa[campo]);
    };

    // Kept: a read that fails, such as that of a null title, leaves the text of the mark before.
    QString texto;
    const auto substitui = [&](const char* marca, const auto& leitura) {
        try {
            texto = leitura();
        } catch (const jet::Error&) {
        }
        SubstituiMarca(ficha, marca, texto);
    };
    substitui("@nome", [&] { return requiredText(pessoa["Nome"]); });
    substitui("@titulo", [&] { return requiredText(pessoa["titulo"]); });
    substitui("@sexo", [&] { return pessoa["sexo"].toString() == "f" ? "Feminino" : "Masculino"; });
    substitui("@datanasc", [&] { return data("datanasc"); });
    substitui("@localnasc", [&] {
        return pessoa["localnasc"].isNull() ? " " : NomeLocal(pessoa["localnasc"], pessoa["tipolocalnasc"]);
    });
    substitui("@filiacao", [&] { return DescricaoInfo("Filia", requiredText(pessoa["filiacao"])); });
    texto.clear();
    substitui("@nomepais",
              [&] { return pessoa["famorig"].isNull() ? " " : nomesDosPais(textoDoNumero(pessoa["famorig"])); });
    substitui("@dataobi", [&] { return data("dataobito"); });
    substitui("@localobi", [&] {
        return Trim(pessoa["localobito"].toString()).isEmpty()
                   ? " "
                   : NomeLocal(pessoa["localobito"], pessoa["tipolocalobito"]);
    });
}

} // namespace

void FichaIndividual(const jet::Recordset& pessoa)
{
    {
        Hourglass ampulheta;
        const QString pasta = Desktop::programFolder();
        if (auto ficha = RtfDocument::open(pasta + "/fichInd.doc")) {
            preenche(*ficha, pessoa);
            ficha->saveAs(pasta + "/resultfichInd.doc");
        }
    }
    showMessage("Ficha Individual concluída.", Icon::None);
}
