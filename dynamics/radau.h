#pragma once
// Everhart's RADAU integrator on Gauss-Radau spacings, in its 11th-order form
// (six nodes), class II (y'' = F(y, y', t)), carrying the Encke deviation of
// the force model. After every accepted step the reference orbit is rebuilt in
// binary128 so that the deviation starts from zero again. The accuracy is
// fixed: the sequence-size parameter is 1e-14.
#include <array>
#include <functional>

#include "astro/twobody.h"
#include "dynamics/force_model.h"

namespace orvane {

// Substep nodes as fractions of a sequence, and the tables of Everhart's
// recursion that follow from them: W(n) = 1/(n + n^2), U(n) = 1/n for
// n = 2 to 6, and C, D, R for six nodes (ten entries each).
struct RadauTables {
    std::array<double, 6> h{};
    std::array<double, 5> w{};
    std::array<double, 5> u{};
    std::array<double, 10> c{};
    std::array<double, 10> d{};
    std::array<double, 10> r{};
};

// The nodes 0, 0.0985350857988264 ... 0.9601901429485313 and the tables
// computed from them.
const RadauTables& Radau();

inline constexpr double kSequenceAccuracy = 1e-14;
inline constexpr double kSizeExponent = 0.14285714285714285;  // 1/7
inline constexpr double kGrowthCap = 1.5;
inline constexpr double kLastSequenceSlack = 1.001;
inline constexpr int kRefusalLimit = 10;
inline constexpr double kRectificationWing = 6.0;  // days either side, for perihelion

// First sequence size: DIR 0.5 0.5^5.6, and half the span when the span is
// shorter than twice that.
double FirstSequenceSize(double tf);

// DIR (1e-14/HV)^(1/7): the size a sequence with this HV asks for.
double SequenceSizeFor(double hv, double dir);

// What the run hears after each accepted step.
struct StepReport {
    double tm = 0.0;        // days since the start epoch reached
    double step = 0.0;      // size of this sequence, signed (LastStep)
    long long sequence = 0; // sequences done
    StateVector state;      // true state at tm
    StateVector before;     // reference orbit plus deviation at tm - 6 days
    StateVector after;      // and at tm + 6 days
    bool last = false;      // the span is covered with this step
};

// Returns false to stop the integration after this step.
using StepObserver = std::function<bool(const StepReport&)>;

enum class IntegrationStatus {
    Completed,  // the span is covered
    Refused,    // the first sequence was refused eleven times
    Stopped,    // the observer asked to stop
};

class Integrator {
public:
    // The force model's start epoch, non-gravitational values, masses and
    // hook are set by the caller; the integrator sets its reference orbit and
    // its last step.
    explicit Integrator(ForceModel& force);

    // Integrates from `start` (at the start epoch, t = 0) over tf days (signed,
    // not zero), telling `observer` after each accepted step.
    IntegrationStatus Run(const StateVector& start, double tf, const StepObserver& observer);

    // State after a run.
    double tm() const { return tm_; }
    long long sequences() const { return ns_; }
    int refusals() const { return ncount_; }
    double hv() const { return hv_; }
    // Time spent on the binary128 rebuild of the reference orbit, when
    // measuring is switched on (seconds).
    void SetMeasureRectification(bool on) { measure_ = on; }
    double rectificationSeconds() const { return rectificationSeconds_; }

private:
    using Coefficients = std::array<Vector3, 5>;

    void Reset(double tf);
    void Iterate(double t, double t2);
    void FinishSequence(double t);
    StepReport Rectify(double t);
    void PredictB(double q);

    ForceModel& force_;
    const RadauTables& tab_;

    Vector3 x_{}, v_{}, f1_{};
    Coefficients b_{}, g_{}, e_{}, bd_{};
    double dir_ = 1.0;
    double tm_ = 0.0;
    double hv_ = 0.0;
    double hvPrev_ = 10000.0;
    int ni_ = 32;
    int ncount_ = 0;
    long long ns_ = 0;
    bool nsf_ = false;
    bool nper_ = false;
    bool measure_ = false;
    double rectificationSeconds_ = 0.0;
};

}  // namespace orvane
