// Completes a circuit by one more function, with few new gates.
#ifndef VANDPUBLIC_TOOLS_CIRCUITS_SOLVER_H
#define VANDPUBLIC_TOOLS_CIRCUITS_SOLVER_H

#include <random>

#include "circuit.h"

namespace circuits {

// Adds gates until a signal equals the target wherever mask is set. Gives the signal's number, or
// -1 when it takes more than `budget` new gates or was not found; the circuit is then as it was.
//
// The search: the signal itself, one gate over two signals, two gates over three, three gates over
// four; failing these, one input is split off (f = g XOR (input AND h) or g XOR (input OR h)), the
// two smaller functions being found in the same way, with half of the cases don't-cares. Which
// splits are tried is drawn at random, so that repeated calls give different circuits.
int Solve(Circuit& circuit, Table target, Table mask, int budget, std::mt19937& random);

}  // namespace circuits

#endif
