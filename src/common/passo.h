// The step that a window with commands has reached, and the captions of its commands in that step.
#pragma once

#include <QList>

class QAbstractButton;

enum class Passo
{
    Repouso, // a record is shown, or none
    Insercao,
    Alteracao,
    Pesquisa // from the empty search form until a result is accepted or the search is given up
};

// The captions of the commands.
namespace legenda {
inline constexpr auto inserir = "&Inserir";
inline constexpr auto adicionar = "a&Dicionar";
inline constexpr auto alterar = "&Alterar";
inline constexpr auto eliminar = "&Eliminar";
inline constexpr auto localizar = "&Localizar";
inline constexpr auto confirmar = "conf&Irmar";
inline constexpr auto cancelar = "cance&Lar";
inline constexpr auto fechar = "&Fechar";
inline constexpr auto editarAParte = "ed&Itar"; // an edit of its own beside the others, in one command
inline constexpr auto confirmarOuCancelar = "&Conf./Canc.";
} // namespace legenda

// The captions of one command. Null: the step leaves the caption as it is.
struct LegendasDoComando
{
    QAbstractButton* comando;
    const char* repouso;
    const char* insercao = nullptr;
    const char* alteracao = nullptr;
    const char* pesquisa = nullptr;
};

// The commands of a window. A click acts by the step; the captions only show it to the user.
class Comandos
{
public:
    // Called once, while the window is constructed. The captions stay as the window has them until the first passaA().
    void usa(QList<LegendasDoComando> legendas) { legendas_ = std::move(legendas); }

    Passo passo() const { return passo_; }
    void passaA(Passo passo);

private:
    QList<LegendasDoComando> legendas_;
    Passo passo_ = Passo::Repouso;
};
