#include "dynamics/radau.h"

#include <chrono>
#include <cmath>

#include "astro/universal_quad.h"

namespace orvane {

namespace {

// Everhart's recursion for the C, D and R tables, 1-based as he wrote it.
RadauTables MakeTables() {
    RadauTables t;
    t.h = {0.0, 0.0985350857988264, 0.3045357266463639, 0.562025189752614, 0.8019865821263918,
           0.9601901429485313};
    for (int n = 2; n <= 6; ++n) {
        t.w[static_cast<std::size_t>(n - 2)] = 1.0 / (n + n * n);
        t.u[static_cast<std::size_t>(n - 2)] = 1.0 / n;
    }
    auto H = [&](int k) { return t.h[static_cast<std::size_t>(k - 1)]; };
    auto C = [&](int k) -> double& { return t.c[static_cast<std::size_t>(k - 1)]; };
    auto D = [&](int k) -> double& { return t.d[static_cast<std::size_t>(k - 1)]; };
    auto R = [&](int k) -> double& { return t.r[static_cast<std::size_t>(k - 1)]; };
    const int nw[7] = {0, 0, 0, 1, 3, 6, 10};  // nw[k]: last entry used by node k - 1

    C(1) = -H(2);
    D(1) = H(2);
    R(1) = 1.0 / (H(3) - H(2));
    int la = 1, lc = 1;
    for (int k = 3; k <= 5; ++k) {
        const int lb = la;
        la = lc + 1;
        lc = nw[k + 1];
        C(la) = -H(k) * C(lb);
        C(lc) = C(la - 1) - H(k);
        D(la) = H(2) * D(lb);
        D(lc) = -C(lc);
        R(la) = 1.0 / (H(k + 1) - H(2));
        R(lc) = 1.0 / (H(k + 1) - H(k));
        for (int l = 4; l <= k; ++l) {
            const int ld = la + l - 3;
            const int le = lb + l - 4;
            C(ld) = C(le) - H(k) * C(le + 1);
            D(ld) = D(le) + H(l - 1) * D(le + 1);
            R(ld) = 1.0 / (H(k + 1) - H(l - 1));
        }
    }
    return t;
}

Quad ToQuad(double x) { return static_cast<Quad>(x); }

StateVector ToDouble(const QuadStateVector& s) {
    return {static_cast<double>(s.x),  static_cast<double>(s.y),  static_cast<double>(s.z),
            static_cast<double>(s.vx), static_cast<double>(s.vy), static_cast<double>(s.vz)};
}

// Binomial coefficients binom(l, k), l and k from 1 to 5, for the prediction of B.
constexpr double kBinomial[6][6] = {
    {1, 0, 0, 0, 0, 0},  {1, 1, 0, 0, 0, 0},   {1, 2, 1, 0, 0, 0},
    {1, 3, 3, 1, 0, 0},  {1, 4, 6, 4, 1, 0},   {1, 5, 10, 10, 5, 1},
};

}  // namespace

const RadauTables& Radau() {
    static const RadauTables tables = MakeTables();
    return tables;
}

double FirstSequenceSize(double tf) {
    const double dir = tf / std::fabs(tf);
    double tp = dir * 0.5 * std::pow(0.5, 5.6000000000000005);
    if (tp / tf > 0.5) tp = 0.5 * tf;
    return tp;
}

double SequenceSizeFor(double hv, double dir) {
    return dir * std::pow(kSequenceAccuracy / hv, kSizeExponent);
}

Integrator::Integrator(ForceModel& force) : force_(force), tab_(Radau()) {}

void Integrator::Reset(double tf) {
    dir_ = tf / std::fabs(tf);
    x_ = {};
    v_ = {};
    f1_ = {};
    b_ = {};
    g_ = {};
    e_ = {};
    bd_ = {};
    tm_ = 0.0;
    hv_ = 0.0;
    hvPrev_ = 10000.0;
    ni_ = 32;
    ncount_ = 0;
    ns_ = 0;
    nsf_ = false;
    nper_ = false;
    rectificationSeconds_ = 0.0;
}

// The iterations of one sequence of size t: predictors at each substep, the
// force there, new G values and through them new B values. While the first
// sequence is not yet accepted the iterations run until B5 settles; after
// that there are exactly two.
void Integrator::Iterate(double t, double t2) {
    const auto& H = tab_.h;
    const auto& W = tab_.w;
    const auto& U = tab_.u;
    const auto& C = tab_.c;
    const auto& R = tab_.r;
    for (int m = 1; m <= ni_; ++m) {
        for (int j = 2; j <= 6; ++j) {
            const double s = H[static_cast<std::size_t>(j - 1)];
            Vector3 y{}, z{};
            for (std::size_t k = 0; k < 3; ++k) {
                const double a = W[2] * b_[2][k] + s * (W[3] * b_[3][k] + s * W[4] * b_[4][k]);
                y[k] = x_[k] + s * (t * v_[k] +
                                    t2 * s * (f1_[k] * 0.5 + s * (W[0] * b_[0][k] +
                                                                  s * (W[1] * b_[1][k] + s * a))));
                const double au = U[2] * b_[2][k] + s * (U[3] * b_[3][k] + s * U[4] * b_[4][k]);
                z[k] = v_[k] + s * t * (f1_[k] + s * (U[0] * b_[0][k] + s * (U[1] * b_[1][k] + s * au)));
            }
            Vector3 fj{};
            force_.EvaluateForce(y, z, tm_ + s * t, fj);
            for (std::size_t k = 0; k < 3; ++k) {
                const auto jd = static_cast<std::size_t>(j - 2);
                const double previous = g_[jd][k];
                const double gk = (fj[k] - f1_[k]) / s;
                switch (j) {
                    case 2:
                        g_[0][k] = gk;
                        break;
                    case 3:
                        g_[1][k] = (gk - g_[0][k]) * R[0];
                        break;
                    case 4:
                        g_[2][k] = ((gk - g_[0][k]) * R[1] - g_[1][k]) * R[2];
                        break;
                    case 5:
                        g_[3][k] = (((gk - g_[0][k]) * R[3] - g_[1][k]) * R[4] - g_[2][k]) * R[5];
                        break;
                    default:
                        g_[4][k] = ((((gk - g_[0][k]) * R[6] - g_[1][k]) * R[7] - g_[2][k]) * R[8] -
                                    g_[3][k]) *
                                   R[9];
                        break;
                }
                const double change = g_[jd][k] - previous;
                b_[jd][k] += change;
                switch (j) {
                    case 3:
                        b_[0][k] += C[0] * change;
                        break;
                    case 4:
                        b_[0][k] += C[1] * change;
                        b_[1][k] += C[2] * change;
                        break;
                    case 5:
                        b_[0][k] += C[3] * change;
                        b_[1][k] += C[4] * change;
                        b_[2][k] += C[5] * change;
                        break;
                    case 6:
                        b_[0][k] += C[6] * change;
                        b_[1][k] += C[7] * change;
                        b_[2][k] += C[8] * change;
                        b_[3][k] += C[9] * change;
                        break;
                    default:
                        break;
                }
            }
        }
        if (m < 2) continue;
        // B5 as scaled by W, all three components as one length, per |T|^5.
        const double b5 = std::sqrt(b_[4][0] * b_[4][0] + b_[4][1] * b_[4][1] + b_[4][2] * b_[4][2]);
        const double size = std::fabs(t);
        hv_ = b5 * W[4] / (size * size * size * size * size);
        if (!nsf_) {
            if (std::fabs(hv_ - hvPrev_) / hv_ < 0.01) break;
            hvPrev_ = hv_;
        }
    }
}

void Integrator::FinishSequence(double t) {
    const auto& W = tab_.w;
    const auto& U = tab_.u;
    const double t2 = t * t;
    for (std::size_t k = 0; k < 3; ++k) {
        x_[k] += v_[k] * t + t2 * (f1_[k] * 0.5 + b_[0][k] * W[0] + b_[1][k] * W[1] +
                                   b_[2][k] * W[2] + b_[3][k] * W[3] + b_[4][k] * W[4]);
        v_[k] += t * (f1_[k] + b_[0][k] * U[0] + b_[1][k] * U[1] + b_[2][k] * U[2] +
                      b_[3][k] * U[3] + b_[4][k] * U[4]);
    }
    tm_ += t;
    ++ns_;
    force_.SetLastStep(t);
}

// The deviation is folded into the reference orbit in binary128, which then
// starts at tm; the orbit six days either side serves the perihelion test.
StepReport Integrator::Rectify(double t) {
    const auto started = measure_ ? std::chrono::steady_clock::now() : std::chrono::steady_clock::time_point{};
    const ReferenceOrbit& ref = force_.referenceOrbit();
    const QuadStateVector from{ref.r[0], ref.r[1], ref.r[2], ref.v[0], ref.v[1], ref.v[2]};
    const Quad tm = ToQuad(tm_);
    const Quad wing = ToQuad(kRectificationWing);
    // One call for the three times, which share the start's radius and 1/a.
    const Quad times[3] = {tm, tm - wing, tm + wing};
    QuadStateVector orbit[3];
    PropagateUniversalQuad(from, ref.t0, times, orbit);
    QuadStateVector& middle = orbit[0];
    QuadStateVector& before = orbit[1];
    QuadStateVector& after = orbit[2];
    for (QuadStateVector* s : {&middle, &before, &after}) {
        s->x += ToQuad(x_[0]);
        s->y += ToQuad(x_[1]);
        s->z += ToQuad(x_[2]);
        s->vx += ToQuad(v_[0]);
        s->vy += ToQuad(v_[1]);
        s->vz += ToQuad(v_[2]);
    }
    ReferenceOrbit next;
    next.r = {middle.x, middle.y, middle.z};
    next.v = {middle.vx, middle.vy, middle.vz};
    next.t0 = tm;
    force_.SetReferenceOrbit(next);
    x_ = {};
    v_ = {};
    if (measure_) {
        rectificationSeconds_ +=
            std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
    }
    StepReport report;
    report.tm = tm_;
    report.step = t;
    report.sequence = ns_;
    report.state = ToDouble(middle);
    report.before = ToDouble(before);
    report.after = ToDouble(after);
    report.last = nper_;
    return report;
}

// B of the next sequence from the present one, scaled to the ratio q of the
// sizes, plus the correction that the last prediction needed.
void Integrator::PredictB(double q) {
    for (std::size_t k = 0; k < 3; ++k) {
        if (ns_ > 1) {
            for (std::size_t l = 0; l < 5; ++l) bd_[l][k] = b_[l][k] - e_[l][k];
        }
        double qPower = 1.0;
        for (std::size_t i = 0; i < 5; ++i) {
            qPower *= q;
            double sum = 0.0;
            for (std::size_t l = i; l < 5; ++l) sum += kBinomial[l + 1][i + 1] * b_[l][k];
            e_[i][k] = qPower * sum;
        }
        for (std::size_t l = 0; l < 5; ++l) b_[l][k] = e_[l][k] + bd_[l][k];
    }
}

IntegrationStatus Integrator::Run(const StateVector& start, double tf, const StepObserver& observer) {
    Reset(tf);
    ReferenceOrbit origin;
    origin.r = {ToQuad(start.x), ToQuad(start.y), ToQuad(start.z)};
    origin.v = {ToQuad(start.vx), ToQuad(start.vy), ToQuad(start.vz)};
    origin.t0 = 0;
    force_.SetReferenceOrbit(origin);

    const auto& D = tab_.d;
    double t = FirstSequenceSize(tf);
    for (;;) {
        if (!nsf_) force_.EvaluateForce(x_, v_, tm_, f1_);

        // G from the predicted B (Everhart's equation 2.7).
        for (std::size_t k = 0; k < 3; ++k) {
            g_[0][k] = b_[0][k] + D[0] * b_[1][k] + D[1] * b_[2][k] + D[3] * b_[3][k] + D[6] * b_[4][k];
            g_[1][k] = b_[1][k] + D[2] * b_[2][k] + D[4] * b_[3][k] + D[7] * b_[4][k];
            g_[2][k] = b_[2][k] + D[5] * b_[3][k] + D[8] * b_[4][k];
            g_[3][k] = b_[3][k] + D[9] * b_[4][k];
            g_[4][k] = b_[4][k];
        }
        Iterate(t, t * t);

        if (!nsf_) {
            const double asked = SequenceSizeFor(hv_, dir_);
            if (asked / t > 1.0) {
                nsf_ = true;
            } else {
                // Too large a first size: again, smaller, from the B found.
                t = 0.8 * asked;
                ++ncount_;
                if (ncount_ > kRefusalLimit) return IntegrationStatus::Refused;
                continue;
            }
        }

        FinishSequence(t);
        const StepReport report = Rectify(t);
        if (observer && !observer(report)) return IntegrationStatus::Stopped;
        if (nper_) return IntegrationStatus::Completed;

        force_.EvaluateForce(x_, v_, tm_, f1_);
        double tp = SequenceSizeFor(hv_, dir_);
        if (tp / t > kGrowthCap) tp = kGrowthCap * t;
        double next = tp;
        if (!(dir_ * (tf - tm_) > dir_ * kLastSequenceSlack * tp)) {
            next = tf - tm_;
            nper_ = true;
        }
        PredictB(next / t);
        ni_ = 2;
        t = next;
    }
}

}  // namespace orvane
