// The captions of the commands. A command's caption is half of a card's state: a click reads it to know what it means.
#pragma once

namespace legenda {
inline constexpr auto inserir = "&Inserir";
inline constexpr auto adicionar = "a&Dicionar";
inline constexpr auto alterar = "&Alterar";
inline constexpr auto eliminar = "&Eliminar";
inline constexpr auto localizar = "&Localizar";
inline constexpr auto confirmar = "conf&Irmar";
inline constexpr auto cancelar = "cance&Lar";
inline constexpr auto fechar = "&Fechar";
} // namespace legenda
