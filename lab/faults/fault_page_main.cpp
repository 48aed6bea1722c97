// Prints the page of faults:
//
//   fault_page lab/scenarios >docs/faults.md

#include <iostream>

#include "lab/faults/fault_page.h"

int main(int count, char** arguments) {
  if (count != 2) {
    std::cerr << "fault_page FOLDER\n";
    return 2;
  }
  try {
    std::cout << tarvik::lab::FaultPage(tarvik::lab::ReadScenarios(arguments[1]));
  } catch (const tarvik::lab::ScenarioError& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
}
