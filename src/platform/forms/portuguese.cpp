#include "platform/forms/msgbox.h"

#include <QApplication>
#include <QHash>
#include <QLocale>
#include <QTranslator>

namespace {

struct Text
{
    const char* context;
    const char* source;
    const char* portuguese;
};

// Those of the toolkit's own texts that a user of this program can meet.
constexpr Text texts[] = {
    {"QGuiApplication", "QT_LAYOUT_DIRECTION", "LTR"}, // also on a desktop that is written from right to left
    {"QPlatformTheme", "OK", "OK"},
    {"QPlatformTheme", "&Yes", "&Sim"},
    {"QPlatformTheme", "&No", "&Não"},
    {"QPlatformTheme", "Yes to &All", "Sim a &todos"},
    {"QPlatformTheme", "N&o to All", "Nã&o a todos"},
    {"QPlatformTheme", "Open", "Abrir"},
    {"QPlatformTheme", "Save", "Guardar"},
    {"QPlatformTheme", "Save All", "Guardar tudo"},
    {"QPlatformTheme", "Cancel", "Cancelar"},
    {"QPlatformTheme", "Close", "Fechar"},
    {"QPlatformTheme", "Abort", "Abortar"},
    {"QPlatformTheme", "Apply", "Aplicar"},
    {"QPlatformTheme", "Discard", "Não guardar"},
    {"QPlatformTheme", "Help", "Ajuda"},
    {"QPlatformTheme", "Ignore", "Ignorar"},
    {"QPlatformTheme", "Reset", "Repor"},
    {"QPlatformTheme", "Restore Defaults", "Repor valores iniciais"},
    {"QPlatformTheme", "Retry", "Repetir"},
    {"QDialogButtonBox", "OK", "OK"},
    {"QMessageBox", "Show Details...", "Mostrar detalhes..."},
    {"QMessageBox", "Hide Details...", "Esconder detalhes..."},

    {"QFileDialog", "Open", "Abrir"},
    {"QFileDialog", "&Open", "&Abrir"},
    {"QFileDialog", "&Save", "&Guardar"},
    {"QFileDialog", "Save As", "Guardar como"},
    {"QFileDialog", "&Choose", "&Escolher"},
    {"QFileDialog", "Alt+Left", "Alt+Left"}, // keys, and no names of them
    {"QFileDialog", "Alt+Right", "Alt+Right"},
    {"QFileDialog", "Alt+Up", "Alt+Up"},
    {"QFileDialog", "Back", "Anterior"},
    {"QFileDialog", "Go back", "Voltar à pasta anterior"},
    {"QFileDialog", "Forward", "Seguinte"},
    {"QFileDialog", "Go forward", "Ir para a pasta seguinte"},
    {"QFileDialog", "Parent Directory", "Pasta acima"},
    {"QFileDialog", "Go to the parent directory", "Ir para a pasta acima"},
    {"QFileDialog", "Create New Folder", "Criar pasta"},
    {"QFileDialog", "Create a New Folder", "Criar uma nova pasta"},
    {"QFileDialog", "New Folder", "Nova pasta"},
    {"QFileDialog", "&New Folder", "&Nova pasta"},
    {"QFileDialog", "List View", "Lista"},
    {"QFileDialog", "Change to list view mode", "Mostrar em lista"},
    {"QFileDialog", "Detail View", "Detalhes"},
    {"QFileDialog", "Change to detail view mode", "Mostrar com detalhes"},
    {"QFileDialog", "Sidebar", "Locais"},
    {"QFileDialog", "List of places and bookmarks", "Lista de locais e marcadores"},
    {"QFileDialog", "Recent Places", "Locais recentes"},
    {"QFileDialog", "Look in:", "Procurar em:"},
    {"QFileDialog", "File &name:", "&Nome do ficheiro:"},
    {"QFileDialog", "Files of type:", "Tipo de ficheiro:"},
    {"QFileDialog", "Files", "Ficheiros"},
    {"QFileDialog", "Directory:", "Pasta:"},
    {"QFileDialog", "Directories", "Pastas"},
    {"QFileDialog", "Find Directory", "Procurar pasta"},
    {"QFileDialog", "All files (*)", "Todos os ficheiros (*)"},
    {"QFileDialog", "All Files (*)", "Todos os ficheiros (*)"},
    {"QFileDialog", "Show ", "Mostrar "},
    {"QFileDialog", "Show &hidden files", "Mostrar ficheiros &escondidos"},
    {"QFileDialog", "&Rename", "&Mudar o nome"},
    {"QFileDialog", "&Delete", "&Eliminar"},
    {"QFileDialog", "Delete", "Eliminar"},
    {"QFileDialog", "Remove", "Retirar"},
    {"QFileDialog", "%1\nFile not found.\nPlease verify the correct file name was given.",
     "%1\nO ficheiro não existe.\nVerifique o nome que escreveu."},
    {"QFileDialog", "%1\nDirectory not found.\nPlease verify the correct directory name was given.",
     "%1\nA pasta não existe.\nVerifique o nome que escreveu."},
    {"QFileDialog", "%1 already exists.\nDo you want to replace it?", "%1 já existe.\nDeseja substituí-lo?"},
    {"QFileDialog", "'%1' is write protected.\nDo you want to delete it anyway?",
     "\"%1\" está protegido contra escrita.\nDeseja eliminá-lo mesmo assim?"},
    {"QFileDialog", "Are you sure you want to delete '%1'?", "Deseja realmente eliminar \"%1\"?"},
    {"QFileDialog", "Could not delete directory.", "Não foi possível eliminar a pasta."},
    {"QFileSystemModel", "Name", "Nome"},
    {"QFileSystemModel", "Size", "Tamanho"},
    {"QFileSystemModel", "Kind", "Tipo"},
    {"QFileSystemModel", "Type", "Tipo"},
    {"QFileSystemModel", "Date Modified", "Data de alteração"},
    {"QFileSystemModel", "My Computer", "Computador"},
    {"QFileSystemModel", "Computer", "Computador"},
    {"QFileSystemModel", "Invalid filename", "Nome inválido"},
    {"QFileSystemModel",
     "<b>The name \"%1\" cannot be used.</b><p>Try using another name, with fewer characters or no punctuation marks.",
     "<b>O nome \"%1\" não pode ser usado.</b><p>Escolha outro, mais curto ou sem sinais de pontuação."},
    {"QAbstractFileIconProvider", "Drive", "Unidade"},
    {"QAbstractFileIconProvider", "File", "Ficheiro"},
    {"QAbstractFileIconProvider", "%1 File", "Ficheiro %1"},
    {"QAbstractFileIconProvider", "Folder", "Pasta"},
    {"QAbstractFileIconProvider", "File Folder", "Pasta"},
    {"QAbstractFileIconProvider", "Shortcut", "Atalho"},
    {"QAbstractFileIconProvider", "Alias", "Atalho"},
    {"QAbstractFileIconProvider", "Unknown", "Desconhecido"},

    {"QLineEdit", "&Undo", "&Anular"},
    {"QLineEdit", "&Redo", "&Refazer"},
    {"QLineEdit", "Cu&t", "Cor&tar"},
    {"QLineEdit", "&Copy", "&Copiar"},
    {"QLineEdit", "&Paste", "Co&lar"},
    {"QLineEdit", "Delete", "Eliminar"},
    {"QLineEdit", "Select All", "Seleccionar tudo"},
    {"QWidgetTextControl", "&Undo", "&Anular"},
    {"QWidgetTextControl", "&Redo", "&Refazer"},
    {"QWidgetTextControl", "Cu&t", "Cor&tar"},
    {"QWidgetTextControl", "&Copy", "&Copiar"},
    {"QWidgetTextControl", "Copy &Link Location", "Copiar o &endereço"},
    {"QWidgetTextControl", "&Paste", "Co&lar"},
    {"QWidgetTextControl", "Delete", "Eliminar"},
    {"QWidgetTextControl", "Select All", "Seleccionar tudo"},
    {"QUnicodeControlCharacterMenu", "Insert Unicode control character", "Inserir carácter de controlo"},
    {"QUnicodeControlCharacterMenu", "LRM Left-to-right mark", "LRM Marca da esquerda para a direita"},
    {"QUnicodeControlCharacterMenu", "RLM Right-to-left mark", "RLM Marca da direita para a esquerda"},
    {"QUnicodeControlCharacterMenu", "ZWJ Zero width joiner", "ZWJ União de largura zero"},
    {"QUnicodeControlCharacterMenu", "ZWNJ Zero width non-joiner", "ZWNJ Separação de largura zero"},
    {"QUnicodeControlCharacterMenu", "ZWSP Zero width space", "ZWSP Espaço de largura zero"},
    {"QUnicodeControlCharacterMenu", "LRE Start of left-to-right embedding", "LRE Início da esquerda para a direita"},
    {"QUnicodeControlCharacterMenu", "RLE Start of right-to-left embedding", "RLE Início da direita para a esquerda"},
    {"QUnicodeControlCharacterMenu", "LRO Start of left-to-right override", "LRO Força da esquerda para a direita"},
    {"QUnicodeControlCharacterMenu", "RLO Start of right-to-left override", "RLO Força da direita para a esquerda"},
    {"QUnicodeControlCharacterMenu", "PDF Pop directional formatting", "PDF Fim da direcção"},
    {"QUnicodeControlCharacterMenu", "LRI Left-to-right isolate", "LRI Isola da esquerda para a direita"},
    {"QUnicodeControlCharacterMenu", "RLI Right-to-left isolate", "RLI Isola da direita para a esquerda"},
    {"QUnicodeControlCharacterMenu", "FSI First strong isolate", "FSI Isola pela primeira letra"},
    {"QUnicodeControlCharacterMenu", "PDI Pop directional isolate", "PDI Fim do isolamento"},

    {"QMdiSubWindow", "&Restore", "&Restaurar"},
    {"QMdiSubWindow", "&Move", "&Mover"},
    {"QMdiSubWindow", "&Size", "&Tamanho"},
    {"QMdiSubWindow", "Mi&nimize", "Mi&nimizar"},
    {"QMdiSubWindow", "Ma&ximize", "Ma&ximizar"},
    {"QMdiSubWindow", "Stay on &Top", "Manter &acima"},
    {"QMdiSubWindow", "&Close", "&Fechar"},
    {"QMdiSubWindow", "Restore", "Restaurar"},
    {"QMdiSubWindow", "Restore Down", "Restaurar"},
    {"QMdiSubWindow", "Minimize", "Minimizar"},
    {"QMdiSubWindow", "Maximize", "Maximizar"},
    {"QMdiSubWindow", "Shade", "Enrolar"},
    {"QMdiSubWindow", "Unshade", "Desenrolar"},
    {"QMdiSubWindow", "Close", "Fechar"},
    {"QMdiSubWindow", "Menu", "Menu"},
    {"QMdiSubWindow", "Help", "Ajuda sobre esta janela (Shift+F1)"},
    {"QMdiSubWindow", "%1 - [%2]", "%1 - [%2]"},
    {"QMdiSubWindow", "- [%1]", "- [%1]"},
    {"QDialog", "What's This?", "O que é isto?"},
    {"QWhatsThisAction", "What's This?", "O que é isto?"},
    {"QMdiArea", "(Untitled)", "(Sem título)"},

    {"QComboBox", "Open the combo box selection popup", "Abrir a lista"},
    {"QTabBar", "Scroll Left", "Separadores à esquerda"},
    {"QTabBar", "Scroll Right", "Separadores à direita"},
    {"QScrollBar", "Scroll here", "Deslocar para aqui"},
    {"QScrollBar", "Left edge", "Início da linha"},
    {"QScrollBar", "Right edge", "Fim da linha"},
    {"QScrollBar", "Top", "Início"},
    {"QScrollBar", "Bottom", "Fim"},
    {"QScrollBar", "Page left", "Página à esquerda"},
    {"QScrollBar", "Page right", "Página à direita"},
    {"QScrollBar", "Page up", "Página acima"},
    {"QScrollBar", "Page down", "Página abaixo"},
    {"QScrollBar", "Scroll left", "Deslocar para a esquerda"},
    {"QScrollBar", "Scroll right", "Deslocar para a direita"},
    {"QScrollBar", "Scroll up", "Deslocar para cima"},
    {"QScrollBar", "Scroll down", "Deslocar para baixo"},

    {"QShortcut", "Ctrl", "Ctrl"},
    {"QShortcut", "Shift", "Shift"},
    {"QShortcut", "Alt", "Alt"},
    {"QShortcut", "Space", "Espaço"},
    {"QShortcut", "Esc", "Esc"},
    {"QShortcut", "Tab", "Tab"},
    {"QShortcut", "Backtab", "Shift+Tab"},
    {"QShortcut", "Backspace", "Retrocesso"},
    {"QShortcut", "Return", "Return"},
    {"QShortcut", "Enter", "Enter"},
    {"QShortcut", "Ins", "Ins"},
    {"QShortcut", "Del", "Del"},
    {"QShortcut", "Home", "Início"},
    {"QShortcut", "End", "Fim"},
    {"QShortcut", "Left", "Esquerda"},
    {"QShortcut", "Right", "Direita"},
    {"QShortcut", "Up", "Cima"},
    {"QShortcut", "Down", "Baixo"},
    {"QShortcut", "PgUp", "Página acima"},
    {"QShortcut", "PgDown", "Página abaixo"},
    {"QShortcut", "Print", "Imprimir"},
    {"QShortcut", "Help", "Ajuda"},
    {"QShortcut", "Meta", "Meta"},
    {"QShortcut", "Num", "Num"},
    {"QShortcut", "+", "+"},
    {"QShortcut", "F%1", "F%1"},
    {"QShortcut", "Menu", "Menu"},
    {"QShortcut", "Pause", "Pausa"},
    {"QShortcut", "SysReq", "SysRq"},
    {"QShortcut", "Clear", "Limpar"},
    {"QShortcut", "CapsLock", "CapsLock"},
    {"QShortcut", "NumLock", "NumLock"},
    {"QShortcut", "ScrollLock", "ScrollLock"},
    {"QShortcut", "Back", "Anterior"},
    {"QShortcut", "Forward", "Seguinte"},

    {"QAccessibleActionInterface", "Press", "Carregar"},
    {"QAccessibleActionInterface", "Triggers the action", "Executa a acção"},
    {"QAccessibleActionInterface", "Toggle", "Alternar"},
    {"QAccessibleActionInterface", "Toggles the state", "Liga ou desliga"},
    {"QAccessibleActionInterface", "Increase", "Aumentar"},
    {"QAccessibleActionInterface", "Increase the value", "Aumenta o valor"},
    {"QAccessibleActionInterface", "Decrease", "Diminuir"},
    {"QAccessibleActionInterface", "Decrease the value", "Diminui o valor"},
    {"QAccessibleActionInterface", "ShowMenu", "Mostrar o menu"},
    {"QAccessibleActionInterface", "Shows the menu", "Mostra o menu"},
    {"QAccessibleActionInterface", "SetFocus", "Focar"},
    {"QAccessibleActionInterface", "Sets the focus", "Põe aqui o foco"},
    {"QAccessibleActionInterface", "Scroll Left", "Deslocar para a esquerda"},
    {"QAccessibleActionInterface", "Scrolls to the left", "Desloca para a esquerda"},
    {"QAccessibleActionInterface", "Scroll Right", "Deslocar para a direita"},
    {"QAccessibleActionInterface", "Scrolls to the right", "Desloca para a direita"},
    {"QAccessibleActionInterface", "Scroll Up", "Deslocar para cima"},
    {"QAccessibleActionInterface", "Scrolls up", "Desloca para cima"},
    {"QAccessibleActionInterface", "Scroll Down", "Deslocar para baixo"},
    {"QAccessibleActionInterface", "Scrolls down", "Desloca para baixo"},
    {"QAccessibleActionInterface", "Previous Page", "Página anterior"},
    {"QAccessibleActionInterface", "Goes back a page", "Volta à página anterior"},
    {"QAccessibleActionInterface", "Next Page", "Página seguinte"},
    {"QAccessibleActionInterface", "Goes to the next page", "Passa à página seguinte"},

    // What a file that can't be read or written is told by.
    {"QIODevice", "No such file or directory", "O ficheiro ou a pasta não existe"},
    {"QIODevice", "Permission denied", "Sem autorização"},
    {"QIODevice", "No space left on device", "Não há espaço no disco"},
    {"QIODevice", "Too many open files", "Há demasiados ficheiros abertos"},
    {"QIODevice", "file to open is a directory", "é uma pasta, e não um ficheiro"},
    {"QIODevice", "Unknown error", "Erro desconhecido"},
    {"QFile", "Destination file exists", "O ficheiro de destino já existe"},
    {"QFile", "Destination file is the same file.", "O ficheiro de destino é o mesmo."},
    {"QFile", "Source file does not exist.", "O ficheiro de origem não existe."},
    {"QFile", "Cannot open %1 for input", "Não é possível ler %1"},
    {"QFile", "Cannot create %1 for output", "Não é possível criar %1"},
    {"QFile", "Cannot open for output: %1", "Não é possível escrever: %1"},
    {"QFile", "Cannot remove source file", "Não é possível eliminar o ficheiro de origem"},
    {"QFile", "Error while renaming: %1", "Não foi possível mudar o nome: %1"},
    {"QFile", "Failure to write block", "Não foi possível escrever"},
    {"QSaveFile", "Existing file %1 is not writable", "Não se pode escrever no ficheiro %1"},
    {"QSaveFile", "Filename refers to a directory", "O nome é o de uma pasta"},
    {"QSaveFile", "Writing canceled by application", "A escrita foi interrompida"},
    {"QImageWriter", "Cannot open device for writing: %1", "Não é possível escrever: %1"},
    {"QImageWriter", "Device not writable", "Não é possível escrever"},
    {"QImageWriter", "Unknown error", "Erro desconhecido"},
    {"QImageWriter", "Unsupported image format", "Formato de imagem desconhecido"},
};

class Portuguese : public QTranslator
{
public:
    explicit Portuguese(QObject* parent) : QTranslator(parent)
    {
        for (const Text& text : texts)
            texts_.insert(key(text.context, text.source), QString::fromUtf8(text.portuguese));
    }

    bool isEmpty() const override { return false; }

    QString translate(const char* context, const char* source, const char*, int) const override
    {
        return texts_.value(key(context, source));
    }

private:
    static QByteArray key(const char* context, const char* source)
    {
        return QByteArray(context).append('\n').append(source);
    }

    QHash<QByteArray, QString> texts_;
};

} // namespace

void installPortuguese()
{
    QLocale::setDefault(QLocale(QLocale::Portuguese, QLocale::Portugal));
    qApp->installTranslator(new Portuguese(qApp));
}
