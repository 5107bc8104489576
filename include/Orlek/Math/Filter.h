#pragma once

/// @file
/// A first-order filter for values that arrive step by step.

namespace Orlek::Math {

/// A first-order lag. It keeps no data: the state lives with the caller.
struct Filter {
    /// Takes one step of the lag, y' = (input - y) / timeConstant, by the implicit Euler rule.
    /// @param input the new input.
    /// @param timeConstant the time constant, in the unit of @p step; not the negative of it.
    /// @param step the time since the last step; one above 1 counts as 1, which bounds the weight
    ///        of a single step, for example after a long pause.
    /// @param[in,out] state the last output, replaced by the new one; owned by the caller.
    /// @return the new output.
    /// May be called from any thread.
    static double pt1(double input, double timeConstant, double step, double* state) {
        const double weight = step < 1.0 ? step : 1.0;
        *state = (timeConstant * *state + input * weight) / (timeConstant + weight);
        return *state;
    }
};

}  // namespace Orlek::Math
