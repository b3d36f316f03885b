// A small manual in a program's folder of its own.
#pragma once

#include "platform/desktop/desktop.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

class ManualFolder : public testing::Test
{
protected:
    ManualFolder()
    {
        QDir(program.path()).mkpath("manual/imagens");
        Desktop::setProgramFolder(program.path());
    }
    ~ManualFolder() override { Desktop::setProgramFolder({}); }

    QString path(const QString& name) const { return program.filePath("manual/" + name); }

    void write(const QString& name, const QByteArray& text) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    // Two windows and two messages in one chapter.
    void writeAll() const
    {
        write("10.html", R"(<html><body><h1 id="cap">Capítulo</h1><h2 id="frmA">A</h2><p>uma</p>
                            <h3 id="msg-codigo">"Já existe o código …"</h3><h3 id="msg-dia">"O dia não existe."</h3>)");
        write("indice.json", R"([
            {"id":"cap","titulo":"Começar","tipo":"capitulo","ficheiro":"10.html","ancora":"cap","pagina":3,
             "texto":"As datas dos óbitos"},
            {"id":"frmA","titulo":"A janela das datas","tipo":"janela","ficheiro":"10.html","ancora":"frmA","pagina":4,
             "texto":"Onde se procura"},
            {"id":"msg-codigo","titulo":"\"Já existe o código …\"","tipo":"mensagem","ficheiro":"10.html",
             "ancora":"msg-codigo","pagina":5,"texto":"Escolha outro"},
            {"id":"msg-dia","titulo":"\"O dia não existe.\"","tipo":"mensagem","ficheiro":"10.html",
             "ancora":"msg-dia","pagina":6,"texto":"Veja as datas"}])");
    }

    QTemporaryDir program;
};
