#include "ec/curve.h"

namespace zul {

const EcOperations& p256_operations();
const EcOperations& p384_operations();
const EcOperations& p521_operations();

const EcOperations& ec_operations(EcCurve curve) {
    switch (curve) {
    case EcCurve::p256:
        return p256_operations();
    case EcCurve::p384:
        return p384_operations();
    case EcCurve::p521:
        break;
    }
    return p521_operations();
}

} // namespace zul
