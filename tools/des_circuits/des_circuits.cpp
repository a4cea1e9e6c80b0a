// Searches for gate circuits of the eight DES S-boxes (FIPS 46-3) and writes them as the include files of the
// bit-sliced kernels. The method is the one that M. Kwan described ("Reducing the gate count of bitslice
// DES", 2000), with random choices and restarts instead of a full walk over the orders: an output is looked
// for among the gates that exist, then among combinations of few of them, each time only on the inputs that
// matter; failing that, it is split by one input into two smaller problems, which share every gate made so
// far. See README.md beside this file.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "cipher/des_tables.h"

namespace {

using Table = uint64_t; // bit x is the value for the six inputs x, a1 being the highest bit of x

constexpr int kInputs = 6;
constexpr int kMaxGates = 96;
constexpr int kNone = -1;

enum class Op : uint8_t { input, andOp, orOp, xorOp, andNot, notOp, lut };

struct Gate {
    Op op;
    uint8_t lut; // for Op::lut: bit 4*a + 2*b + c
    int8_t in[3];
};

struct Circuit {
    int count = kInputs;
    Table value[kMaxGates];
    Gate gate[kMaxGates];
    int output[4] = {};

    Circuit() {
        for (int i = 0; i < kInputs; i++) {
            value[i] = 0;
            for (unsigned x = 0; x < 64; x++)
                value[i] |= static_cast<Table>((x >> (5 - i)) & 1) << x;
            gate[i] = {Op::input, 0, {}};
        }
    }
};

Table compute(Op op, Table a, Table b) {
    switch (op) {
    case Op::andOp:
        return a & b;
    case Op::orOp:
        return a | b;
    case Op::xorOp:
        return a ^ b;
    case Op::andNot:
        return a & ~b;
    default:
        return ~a;
    }
}

std::mt19937_64 generator;

int below(int limit) {
    return static_cast<int>(generator() % static_cast<unsigned>(limit));
}

int add(Circuit& c, Op op, int a, int b) {
    c.value[c.count] = compute(op, c.value[a], b == kNone ? 0 : c.value[b]);
    c.gate[c.count] = {op, 0, {static_cast<int8_t>(a), static_cast<int8_t>(b), 0}};
    return c.count++;
}

int add_lut(Circuit& c, unsigned lut, int a, int b, int d) {
    Table v = 0;
    for (unsigned cell = 0; cell < 8; cell++) {
        if ((lut >> cell) & 1)
            v |= ((cell & 4) ? c.value[a] : ~c.value[a]) & ((cell & 2) ? c.value[b] : ~c.value[b]) &
                 ((cell & 1) ? c.value[d] : ~c.value[d]);
    }
    c.value[c.count] = v;
    c.gate[c.count] = {Op::lut,
                       static_cast<uint8_t>(lut),
                       {static_cast<int8_t>(a), static_cast<int8_t>(b), static_cast<int8_t>(d)}};
    return c.count++;
}

struct Search {
    bool luts;
    int breadth[8]; // how many ways to split are tried, by depth

    int existing(const Circuit& c, Table target, Table mask) const {
        for (int i = 0; i < c.count; i++) {
            if (((c.value[i] ^ target) & mask) == 0)
                return i;
        }
        return kNone;
    }

    // one_gate: a new gate over two existing ones.
    int one_gate(Circuit& c, Table target, Table mask) const {
        target &= mask;
        for (int i = 0; i < c.count; i++) {
            if (((~c.value[i] ^ target) & mask) == 0)
                return add(c, Op::notOp, i, kNone);
        }
        const int n = c.count;
        const int start = below(n);
        for (int r = 0; r < n; r++) {
            const int i = (r + start) % n;
            const Table a = c.value[i] & mask;
            for (int j = 0; j < i; j++) {
                const Table b = c.value[j] & mask;
                if ((a ^ b) == target)
                    return add(c, Op::xorOp, i, j);
                if ((a & b) == target)
                    return add(c, Op::andOp, i, j);
                if ((a | b) == target)
                    return add(c, Op::orOp, i, j);
                if ((a & ~b) == target)
                    return add(c, Op::andNot, i, j);
                if ((b & ~a) == target)
                    return add(c, Op::andNot, j, i);
            }
        }
        return kNone;
    }

    // two_gates: an existing gate combined with a new one.
    int two_gates(Circuit& c, Table target, Table mask) const {
        target &= mask;
        const int n = c.count;
        const int start = below(n);
        for (int r = 0; r < n; r++) {
            const int k = (r + start) % n;
            const Table t = c.value[k] & mask;
            int h;
            if ((h = one_gate(c, target ^ t, mask)) != kNone)
                return add(c, Op::xorOp, h, k);
            if ((target & ~t) == 0) {
                if ((h = one_gate(c, target, mask & t)) != kNone)
                    return add(c, Op::andOp, h, k);
                if ((h = one_gate(c, ~target, mask & t)) != kNone)
                    return add(c, Op::andNot, k, h);
            }
            if ((t & ~target) == 0 && (h = one_gate(c, target, mask & ~t)) != kNone)
                return add(c, Op::orOp, h, k);
            if ((t & target) == 0 && (h = one_gate(c, target, mask & ~t)) != kNone)
                return add(c, Op::andNot, h, k);
        }
        const int inverse = one_gate(c, ~target, mask);
        return inverse == kNone ? kNone : add(c, Op::notOp, inverse, kNone);
    }

    struct Pair {
        Table value;
        Op op;
        int8_t a, b;
    };

    // three_gates: two new gates over existing ones, joined by a third.
    int three_gates(Circuit& c, Table target, Table mask) const {
        target &= mask;
        static std::vector<Pair> pairs;
        pairs.clear();
        for (int i = 0; i < c.count; i++) {
            const Table a = c.value[i] & mask;
            for (int j = 0; j < i; j++) {
                const Table b = c.value[j] & mask;
                const auto x = static_cast<int8_t>(i), y = static_cast<int8_t>(j);
                pairs.push_back({a ^ b, Op::xorOp, x, y});
                pairs.push_back({a & b, Op::andOp, x, y});
                pairs.push_back({a | b, Op::orOp, x, y});
                pairs.push_back({a & ~b, Op::andNot, x, y});
                pairs.push_back({b & ~a, Op::andNot, y, x});
            }
        }
        const auto join = [&](const Pair& p, const Pair& q, Op op) {
            const int g = add(c, p.op, p.a, p.b);
            const int h = add(c, q.op, q.a, q.b);
            return add(c, op, g, h);
        };
        // XOR by a small hash table of what is there.
        static std::vector<int> heads(1 << 14), next;
        std::fill(heads.begin(), heads.end(), kNone);
        next.assign(pairs.size(), kNone);
        const auto slot = [](Table v) { return (v * 0x9E3779B97F4A7C15u) >> 50; };
        for (size_t p = 0; p < pairs.size(); p++) {
            for (int q = heads[slot(pairs[p].value ^ target)]; q != kNone; q = next[static_cast<size_t>(q)]) {
                if ((pairs[p].value ^ pairs[static_cast<size_t>(q)].value) == target)
                    return join(pairs[p], pairs[static_cast<size_t>(q)], Op::xorOp);
            }
            next[p] = heads[slot(pairs[p].value)];
            heads[slot(pairs[p].value)] = static_cast<int>(p);
        }
        static std::vector<const Pair*> above, under, outside;
        above.clear();
        under.clear();
        outside.clear();
        for (const Pair& p : pairs) {
            if ((target & ~p.value) == 0 && above.size() < 600)
                above.push_back(&p);
            else if ((p.value & ~target) == 0 && p.value != 0 && under.size() < 600)
                under.push_back(&p);
            else if ((p.value & target) == 0 && p.value != 0 && outside.size() < 600)
                outside.push_back(&p);
        }
        for (const Pair* p : above) {
            for (const Pair* q : above) {
                if ((p->value & q->value) == target)
                    return join(*p, *q, Op::andOp);
            }
            for (const Pair* q : outside) {
                if ((p->value & ~q->value) == target)
                    return join(*p, *q, Op::andNot);
            }
        }
        for (const Pair* p : under) {
            for (const Pair* q : under) {
                if ((p->value | q->value) == target)
                    return join(*p, *q, Op::orOp);
            }
        }
        return kNone;
    }

    // lut_for: the function of three gates that gives target on mask, or -1.
    static int lut_for(Table a, Table b, Table d, Table target, Table mask) {
        unsigned lut = 0;
        for (unsigned cell = 0; cell < 8; cell++) {
            const Table rows = ((cell & 4) ? a : ~a) & ((cell & 2) ? b : ~b) & ((cell & 1) ? d : ~d) & mask;
            if ((rows & target) == 0)
                continue;
            if ((rows & ~target) != 0)
                return -1;
            lut |= 1u << cell;
        }
        return static_cast<int>(lut);
    }

    int one_lut(Circuit& c, Table target, Table mask) const {
        const int n = c.count;
        const int start = below(n);
        for (int r = 0; r < n; r++) {
            const int i = (r + start) % n;
            for (int j = 0; j < i; j++) {
                for (int k = 0; k < j; k++) {
                    const int lut = lut_for(c.value[i], c.value[j], c.value[k], target, mask);
                    if (lut >= 0)
                        return add_lut(c, static_cast<unsigned>(lut), i, j, k);
                }
            }
        }
        return kNone;
    }

    // two_luts: LUT(LUT(a, b, d), e, f) over five existing gates.
    int two_luts(Circuit& c, Table target, Table mask) const {
        const int n = c.count;
        std::array<int, kMaxGates> order{};
        for (int i = 0; i < n; i++)
            order[static_cast<size_t>(i)] = i;
        std::shuffle(order.begin(), order.begin() + n, generator);
        const Table yes = target & mask, no = ~target & mask;
        int p[5];
        for (p[0] = 0; p[0] < n; p[0]++)
            for (p[1] = 0; p[1] < p[0]; p[1]++) {
                const Table a = c.value[order[static_cast<size_t>(p[0])]];
                const Table b = c.value[order[static_cast<size_t>(p[1])]];
                const Table four[4] = {~a & ~b, ~a & b, a & ~b, a & b};
                for (p[2] = 0; p[2] < p[1]; p[2]++) {
                    const Table d = c.value[order[static_cast<size_t>(p[2])]];
                    // Rows of the eight cells that still hold both values.
                    Table open[8];
                    int opens = 0;
                    for (const Table f : four) {
                        if ((f & d & yes) && (f & d & no))
                            open[opens++] = f & d;
                        if ((f & ~d & yes) && (f & ~d & no))
                            open[opens++] = f & ~d;
                    }
                    for (p[3] = 0; p[3] < p[2]; p[3]++) {
                        const Table e = c.value[order[static_cast<size_t>(p[3])]];
                        Table still[16];
                        int stills = 0;
                        for (int o = 0; o < opens; o++) {
                            if ((open[o] & e & yes) && (open[o] & e & no))
                                still[stills++] = open[o] & e;
                            if ((open[o] & ~e & yes) && (open[o] & ~e & no))
                                still[stills++] = open[o] & ~e;
                        }
                        for (p[4] = 0; p[4] < p[3]; p[4]++) {
                            const Table f = c.value[order[static_cast<size_t>(p[4])]];
                            bool works = true;
                            for (int o = 0; o < stills && works; o++) {
                                works = !((still[o] & f & yes) && (still[o] & f & no)) &&
                                        !((still[o] & ~f & yes) && (still[o] & ~f & no));
                            }
                            if (!works)
                                continue;
                            int g[5];
                            for (int q = 0; q < 5; q++)
                                g[q] = order[static_cast<size_t>(p[q])];
                            const int found = split_five(c, g, target, mask);
                            if (found != kNone)
                                return found;
                        }
                    }
                }
            }
        return kNone;
    }

    static int split_five(Circuit& c, const int g[5], Table target, Table mask) {
        for (int x = 0; x < 5; x++) {
            for (int y = 0; y < x; y++) {
                int rest[3], m = 0;
                for (int q = 0; q < 5; q++) {
                    if (q != x && q != y)
                        rest[m++] = g[q];
                }
                for (unsigned inner = 1; inner < 128; inner++) { // the complements give nothing new
                    const int h = add_lut(c, inner, rest[0], rest[1], rest[2]);
                    const int lut = lut_for(c.value[h], c.value[g[x]], c.value[g[y]], target, mask);
                    if (lut >= 0)
                        return add_lut(c, static_cast<unsigned>(lut), h, g[x], g[y]);
                    c.count--;
                }
            }
        }
        return kNone;
    }

    // make adds the gates of target on mask to c and returns its number, or kNone when that would take
    // c.count to limit or beyond; c is then of no use.
    int make(Circuit& c, Table target, Table mask, unsigned used, int depth, int limit) const {
        int g = existing(c, target, mask);
        if (g != kNone)
            return g;
        if (c.count + 1 >= limit)
            return kNone;
        if ((g = luts ? one_lut(c, target, mask) : one_gate(c, target, mask)) != kNone)
            return g;
        if (c.count + 2 >= limit)
            return kNone;
        if ((g = luts ? two_luts(c, target, mask) : two_gates(c, target, mask)) != kNone)
            return g;
        if (c.count + 3 >= limit)
            return kNone;
        if (!luts && (g = three_gates(c, target, mask)) != kNone)
            return g;

        std::vector<int> ways;
        for (int i = 0; i < kInputs; i++) {
            if (!((used >> i) & 1))
                for (int form = 0; form < (luts ? 3 : 2); form++)
                    ways.push_back(i * 4 + form);
        }
        std::shuffle(ways.begin(), ways.end(), generator);
        if (static_cast<int>(ways.size()) > breadth[depth])
            ways.resize(static_cast<size_t>(breadth[depth]));
        Circuit best;
        int bestGate = kNone;
        for (const int way : ways) {
            const int in = way / 4, form = way % 4;
            Circuit trial = c;
            const int made = split(trial, target, mask, in, form, used | 1u << in, depth, limit);
            if (made != kNone && trial.count < limit) {
                best = trial;
                bestGate = made;
                limit = trial.count;
            }
        }
        if (bestGate != kNone)
            c = best;
        return bestGate;
    }

    int split(Circuit& c, Table target, Table mask, int in, int form, unsigned used, int depth,
              int limit) const {
        const Table on = c.value[in];
        const int join = luts ? 1 : 2;
        const Table first = form == 1 ? mask & on : mask & ~on; // the side that is made as it is
        const int f = make(c, target, first, used, depth + 1, limit - join);
        if (f == kNone)
            return kNone;
        if (luts && form == 2) { // the other side as it is too
            const int h = make(c, target, mask & ~first, used, depth + 1, limit - join);
            return h == kNone ? kNone : add_lut(c, 0xCA, in, h, f);
        }
        const int h = make(c, target ^ c.value[f], mask & ~first, used, depth + 1, limit - join);
        if (h == kNone)
            return kNone;
        if (luts)
            return add_lut(c, form == 1 ? 0xB4 : 0x78, f, h, in);
        const int part = form == 1 ? add(c, Op::andNot, h, in) : add(c, Op::andOp, h, in);
        return add(c, Op::xorOp, f, part);
    }
};

// The whole S-box, its outputs in a random order.
bool make_sbox(const Search& search, int box, Circuit& result, int limit) {
    int order[4] = {0, 1, 2, 3};
    std::shuffle(order, order + 4, generator);
    Circuit c;
    for (const int o : order) {
        Table target = 0;
        for (unsigned x = 0; x < 64; x++)
            target |= static_cast<Table>((zul::des_sbox(static_cast<unsigned>(box), x) >> (3 - o)) & 1) << x;
        c.output[o] = search.make(c, target, ~Table{0}, 0, 0, limit);
        if (c.output[o] == kNone)
            return false;
    }
    result = c;
    return true;
}

std::string name(int gate) {
    char out[8];
    snprintf(out, sizeof out, gate < kInputs ? "a%d" : "x%d", gate < kInputs ? gate + 1 : gate - kInputs + 1);
    return out;
}

std::string text(const Gate& g) {
    const std::string a = name(g.in[0]), b = name(g.op == Op::notOp ? 0 : g.in[1]), c = name(g.in[2]);
    if (g.op == Op::lut) {
        char out[64];
        snprintf(out, sizeof out, "ZUL_DES_LUT(0x%02X, %s, %s, %s)", g.lut, a.c_str(), b.c_str(), c.c_str());
        return out;
    }
    if (g.op == Op::notOp)
        return "~" + a;
    const char* sign = g.op == Op::andOp   ? " & "
                       : g.op == Op::orOp  ? " | "
                       : g.op == Op::xorOp ? " ^ "
                                           : " & ~";
    return a + sign + b;
}

void write_sbox(FILE* out, int box, const Circuit& c) {
    fprintf(out, "\n// %d gates\n", c.count - kInputs);
    fprintf(out, "ZUL_DES_CIRCUIT(sbox%d) {\n", box + 1);
    for (int g = kInputs; g < c.count; g++)
        fprintf(out, "    const V %s = %s;\n", name(g).c_str(), text(c.gate[g]).c_str());
    for (int o = 0; o < 4; o++)
        fprintf(out, "    o%d ^= %s;\n", o + 1, name(c.output[o]).c_str());
    fprintf(out, "}\n");
}

} // namespace

// des_circuits gates|luts SECONDS-PER-BOX SEED [BOX]
int main(int argc, char** argv) {
    if (argc < 4)
        return 2;
    Search search{};
    search.luts = strcmp(argv[1], "luts") == 0;
    const double seconds = strtod(argv[2], nullptr);
    generator.seed(strtoull(argv[3], nullptr, 10));
    const long only = argc > 4 ? strtol(argv[4], nullptr, 10) : 0;
    printf("// Made by tools/des_circuits: the S-boxes of FIPS 46-3 as circuits of %s.\n",
           search.luts ? "functions of three bits" : "AND, OR, XOR, AND-NOT and NOT");
    for (int box = 0; box < 8; box++) {
        if (only != 0 && box + 1 != only)
            continue;
        Circuit best;
        int limit = kMaxGates - 8;
        const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
        int rounds = 0;
        while (std::chrono::steady_clock::now() < end) {
            const int wide = 1 + below(4);
            for (int d = 0; d < 8; d++)
                search.breadth[d] = d == 0 ? wide * 2 : d == 1 ? 1 + below(3) : 1 + below(2);
            if (make_sbox(search, box, best, limit)) {
                limit = best.count;
                fprintf(stderr, "S%d: %d gates\n", box + 1, limit - kInputs);
            }
            rounds++;
        }
        fprintf(stderr, "S%d: %d rounds, best %d\n", box + 1, rounds, best.count - kInputs);
        write_sbox(stdout, box, best);
    }
}
