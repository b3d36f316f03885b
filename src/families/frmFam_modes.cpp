// The three modes of the card: blue for editing, white for consulting, orange for searching.
#include "families/frmFam.h"

const QList<ModeRow>& FrmFam::modos() const
{
    using enum Effect;
    constexpr QColor blue = corDoModo::edi, white = corDoModo::cons, orange = corDoModo::loc;

    // clang-format off
    static const QList<ModeRow> tabela{
        // control          Edi                Cons               Loc
        // Kept: shut as "Cons" left them, so that the number and the descriptions can't be edited.
        {"txtNFam",         {Keep, blue},      {Shut, white},     {Open, orange}},
        {"txtPnome",        {Keep, blue},      {Shut, white},     {Open, orange}},
        {"txtSnome",        {Keep, blue},      {Shut, white},     {Open, orange}},
        {"txtPnind",        {Open, blue},      {Shut, white},     {Keep}},
        {"txtSnind",        {Open, blue},      {Shut, white},     {Keep}},
        {"txtIdade1",       {Open, blue},      {Shut, white},     {Keep}},
        {"txtIdade2",       {Open, blue},      {Shut, white},     {Keep}},
        {"txtNC1",          {Open, blue},      {Shut, white},     {Keep}},
        {"txtNC2",          {Open, blue},      {Shut, white},     {Keep}},
        // Kept: stays shut in a search, so that the notes can't be searched.
        {"txtObs",          {Open, blue},      {Shut, white},     {Keep}},
        {"cmbSit",          {Open, blue},      {Shut, white},     {Open, orange}},
        {"cmbTipoFam",      {Open, blue},      {Shut, white},     {Open, orange}},
        {"cmbLoc",          {Open, blue},      {Shut, white},     {Open, orange}},
        {"cmbEC1",          {Open, blue},      {Shut, white},     {Keep}},
        {"cmbEC2",          {Open, blue},      {Shut, white},     {Keep}},
        {"mskData",         {Enabled, blue},   {Disabled, white}, {Disabled}},
        {"mskini",          {Enabled, blue},   {Disabled, white}, {Disabled}},
        {"mskFim",          {Enabled, blue},   {Disabled, white}, {Disabled}},
        {"chkDF",           {Enabled},         {Disabled},        {Keep}},
        {"fraFilhos",       {Disabled},        {Enabled},         {Keep}},
        {"cmdEncLoc",       {Enabled},         {Disabled},        {Enabled}},
        {"cmdDirInd_0",     {Enabled},         {Enabled},         {Disabled}},
        {"cmdDirInd_1",     {Enabled},         {Enabled},         {Disabled}},
        {"cmdInt",          {Disabled},        {Enabled},         {Disabled}},
        {"cmdResid",        {Disabled},        {Enabled},         {Disabled}},
        {"cmdLocDat",       {Hidden},          {Hidden},          {Visible}},
        {"cmdLoc",          {Disabled},        {Enabled},         {Keep}},
        {"cmdIns",          {Keep},            {Enabled},         {Keep}},
        {"cmdAlt",          {Keep},            {Enabled},         {Disabled}},
        {"cmdElim",         {Keep},            {Enabled},         {Disabled}},
        {"cmdFechar",       {Disabled},        {Enabled},         {Disabled}},
        {"cmdPrim",         {Disabled},        {Enabled},         {Disabled}},
        {"cmdAnt",          {Disabled},        {Enabled},         {Disabled}},
        {"cmdSeg",          {Disabled},        {Enabled},         {Disabled}},
        {"cmdUlt",          {Disabled},        {Enabled},         {Disabled}},
        {"cmdConsultar",    {Disabled},        {Keep},            {Disabled}},
        {"cmdInsF",         {Disabled},        {Keep},            {Disabled}},
        {"cmdElimF",        {Disabled},        {Keep},            {Disabled}},
    };
    // clang-format on
    return tabela;
}

void FrmFam::AplicarModo(Modo modo)
{
    Ficha::AplicarModo(modo);
    chamada().familiaMudaDeModo(modo == Modo::Edi);
    if (modo == Modo::Loc) esvaziaContagens();
}
