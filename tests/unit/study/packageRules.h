// The published rules of a tabular data package (Frictionless: Data Package, Data Resource, Table Schema, CSV Dialect,
// version 1), as far as a description alone can keep or break them.
#pragma once

#include <QByteArray>
#include <QStringList>

namespace package {

// What of datapackage.json is against them, "resources[0].schema.fields[2].type: …"; [] for nothing.
QStringList faultsOf(const QByteArray& description);

} // namespace package
