#pragma once
// The zoom step shared by the wheel and the drag: a count of n steps from z. Counts of
// -1, 0 and 1 change nothing; the dead band keeps small wheel deltas and short drags still.
inline float zoom_step(int n, float z) {
    if (n > 0) {
        for (int i = 0; i < n - 1; ++i)
            z = float(double(z) * 1.0625);
    } else {
        for (int i = 0; i < -(n + 1); ++i)
            z = z * 0.9375f;
    }
    return z;
}
