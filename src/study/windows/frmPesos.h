// "Pesos das ligações": what each agreement and each disagreement of two records is worth, and from when they are
// proposed.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/form.h"
#include "store/session.h"
#include "study/linkage/model.h"
#include "study/windows/background.h"

#include "ui_frmPesos.h"

#include <QProgressBar>

#include <memory>
#include <optional>
#include <vector>

// A line for each level of each field, and for each limit. What is typed for a line is taken over when another line is
// chosen; all of it is a draft until it is kept in the BDP, and asked about when the window is closed. An estimate is
// made on a thread, over a copy of the BDP, and is a draft, too.
class FrmPesos : public Form, private Ui::FrmPesos
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmPesos";

    FrmPesos();
    ~FrmPesos() override;

    // The weights of the last search: shown where the BDP keeps none and nothing was altered.
    void mostra(const study::linkage::Model& ofSearch);

protected:
    void Form_Load() override;
    bool Form_QueryUnload(UnloadMode mode) override;

private:
    // A weight of the model, or one of its limits.
    struct Line
    {
        std::optional<size_t> weight = {};
        size_t limit = 0;
    };

    void dtgPesos_Click();
    void cmdMudar_Click();
    void cmdEstimar_Click();
    void cmdIniciais_Click();
    void cmdGravar_Click();
    void cmdAnular_Click();

    void ended();
    void setAtWork(bool atWork);
    void take(const study::linkage::Model& model);
    void fillGrid();
    QStringList cellsOf(const Line& line) const;
    void showValues();
    bool isTyped() const;
    bool takeTyped(); // false where it is no value
    void refuse(TextBox* box, const QString& text);
    void keep(); // throws jet::Error
    bool isAltered() const { return draft_ != base_ || isTyped(); }
    void showState();

    study::linkage::Model draft_, base_; // as it is shown, and as it was when nothing was altered
    std::optional<study::linkage::Model> kept_;
    std::vector<Line> lines_;
    int shown_ = 0;  // the row of the fields
    QString origin_; // of the draft
    std::shared_ptr<study::linkage::Model> found_;
    std::unique_ptr<study::Background> work_;
};
