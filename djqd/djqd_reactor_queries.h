#pragma once
// The query texts of the automatic starting-reactor choice, written once for the reactor page
// and for batch runs, so that both choose the same reactor from the same catalogue rows.
#include <string>

namespace kestra::djqd {

// The starting-reactor catalogue and its table.
inline constexpr const char* kReactorCatalogue = "datcom\\qddkq.mdb";
inline constexpr const char* kReactorTable = "起动电抗器数据";

// Every distinct rated reactance per phase.
inline std::string ReactancesQuery() {
  return std::string("SELECT DISTINCT [每相额定电抗Ω] FROM [") + kReactorTable + "]";
}

// The starting currents of the reactors of one reactance (the text as the catalogue holds it).
inline std::string ReactorCurrentsQuery(const std::string& reactance) {
  return std::string("SELECT DISTINCT [起动电流A] FROM [") + kReactorTable + "] WHERE 每相额定电抗Ω LIKE \"" +
         reactance + "\"";
}

// The models of one starting current (its text as read) and reactance.
inline std::string ReactorModelQuery(const std::string& current, const std::string& reactance) {
  return std::string("SELECT [￥型 号] FROM ") + kReactorTable + " WHERE 起动电流A LIKE \"" + current +
         "\" AND 每相额定电抗Ω LIKE \"" + reactance + "\"";
}

}  // namespace kestra::djqd
