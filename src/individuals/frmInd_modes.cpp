// The three modes of the card: blue for editing, white for consulting, orange for searching.
#include "individuals/frmInd.h"

#include <QGuiApplication>
#include <QPalette>

const QList<ModeRow>& FrmInd::modos() const
{
    using enum Effect;
    constexpr QColor blue = corDoModo::edi, white = corDoModo::cons, orange = corDoModo::loc, deepOrange(255, 128, 0);
    static const QColor highlight = QGuiApplication::palette().color(QPalette::Highlight);

    // clang-format off
    static const QList<ModeRow> tabela{
        // control          Edi                    Cons                   Loc
        {"txtNind",         {Open, blue},          {Shut, white},         {Open, orange}},
        {"txtNome",         {Open, blue},          {Shut, white},         {Open, orange}},
        {"cmbTipoInd",      {Open, blue},          {Shut, white},         {Open, orange}},
        {"optSexo_0",       {Enabled, highlight},  {Disabled, highlight}, {Enabled, deepOrange}},
        {"optSexo_1",       {Enabled, highlight},  {Disabled, highlight}, {Enabled, deepOrange}},
        // Kept: stays shut as "Cons" left it, so that "D" can't be searched for.
        {"optSexo_2",       {Enabled, highlight},  {Disabled, highlight}, {Keep, deepOrange}},
        {"mskini",          {Enabled, blue},       {Disabled, white},     {Disabled}},
        {"mskFim",          {Enabled, blue},       {Disabled, white},     {Disabled}},
        {"txtFamOrig",      {Shut, blue},          {Shut, white},         {Keep}},
        {"txtTit",          {Open, blue},          {Shut, white},         {Keep}},
        {"txtAlcunha",      {Open, blue},          {Shut, white},         {Keep}},
        {"mskDtNasc",       {Enabled, blue},       {Disabled, white},     {Disabled}},
        {"mskDtObito",      {Enabled, blue},       {Disabled, white},     {Disabled}},
        {"chkDtNasc",       {Enabled},             {Disabled},            {Keep}},
        {"chkDFixa",        {Enabled},             {Disabled},            {Keep}},
        {"cmbLoc",          {Open, blue},          {Shut, white},         {Open, orange}},
        {"cmbLocObito",     {Open, blue},          {Shut, white},         {Open, orange}},
        {"cmdEncLoc",       {Enabled},             {Disabled},            {Enabled}},
        {"cmdLocOb",        {Enabled},             {Disabled},            {Enabled}},
        {"cmbFiliacao",     {Open, blue},          {Shut, white},         {Open, orange}},
        {"txtIdPai",        {Open, blue},          {Shut, white},         {Keep}},
        {"txtIdMae",        {Open, blue},          {Shut, white},         {Keep}},
        {"cmbECPai",        {Open, blue},          {Shut, white},         {Keep}},
        {"cmbECMae",        {Open, blue},          {Shut, white},         {Keep}},
        {"optTest_0",       {Enabled},             {Disabled},            {Disabled}},
        {"optTest_1",       {Enabled},             {Disabled},            {Disabled}},
        {"cmdTest",         {Enabled},             {Disabled},            {Disabled}},
        {"cmbEC",           {Open, blue},          {Shut, white},         {Keep}},
        {"txtIdade",        {Open, blue},          {Shut, white},         {Keep}},
        {"cmbSacram",       {Open, blue},          {Shut, white},         {Keep}},
        {"txtCausa",        {Open, blue},          {Shut, white},         {Keep}},
        {"cmbclass",        {Open, blue},          {Shut, white},         {Keep}},
        {"chkMenor",        {Enabled},             {Disabled},            {Keep}},
        {"txtObs",          {Open, blue},          {Shut, white},         {Open, orange}},
        {"dtgProf",         {Disabled},            {Enabled},             {Keep}},
        {"cmdInterv",       {Disabled},            {Enabled},             {Disabled}},
        {"cmdProf",         {Disabled},            {Enabled},             {Disabled}},
        {"cmdResid",        {Disabled},            {Enabled},             {Disabled}},
        {"cmdAssin",        {Disabled},            {Enabled},             {Disabled}},
        {"cmdConsRel",      {Disabled},            {Enabled},             {Disabled}},
        {"Command1",        {Disabled},            {Enabled},             {Disabled}},
        {"cmdDirFam_0",     {Disabled},            {Enabled},             {Disabled}},
        {"cmdDirFam_1",     {Disabled},            {Enabled},             {Disabled}},
        {"cmdCerFun",       {Disabled},            {Enabled},             {Disabled}},
        {"cmdRMorte",       {Disabled},            {Enabled},             {Disabled}},
        {"cmdLegProf",      {Disabled},            {Enabled},             {Disabled}},
        {"cmdPrim",         {Disabled},            {Enabled},             {Disabled}},
        {"cmdAnt",          {Disabled},            {Enabled},             {Disabled}},
        {"cmdSeg",          {Disabled},            {Enabled},             {Disabled}},
        {"cmdUlt",          {Disabled},            {Enabled},             {Disabled}},
        {"cmdFechar",       {Disabled},            {Enabled},             {Disabled}},
        {"cmdLocDat",       {Hidden},              {Hidden},              {Visible}},
        {"cmdLoc",          {Disabled},            {Enabled},             {Keep}},
        {"cmdIns",          {Keep},                {Enabled},             {Keep}},
        {"cmdAlt",          {Keep},                {Enabled},             {Disabled}},
        {"cmdElim",         {Keep},                {Enabled},             {Disabled}},
        {"cmdAtribuir",     {Disabled},            {Keep},                {Disabled}},
    };
    // clang-format on
    return tabela;
}
