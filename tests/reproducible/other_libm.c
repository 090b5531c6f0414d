// Preloaded, it stands for the C library of another machine: elementary functions whose results are
// off by a last place in two of three calls, up or down.

#define _GNU_SOURCE
#include <dlfcn.h>
#include <math.h>
#include <stdlib.h>

static int calls;

static void *next(const char *name) {
  void *const function = dlsym(RTLD_NEXT, name);
  if (function == NULL) abort();
  return function;
}

#define OTHER(type, name, after, parameters, arguments)                                    \
  type name parameters {                                                                   \
    static type(*real) parameters;                                                         \
    if (real == NULL) real = (type(*) parameters)next(#name);                              \
    const type result = real arguments;                                                    \
    switch (__atomic_fetch_add(&calls, 1, __ATOMIC_RELAXED) % 3) {                         \
      case 0: return result;                                                               \
      case 1: return after(result, (type)INFINITY);                                        \
      default: return after(result, -(type)INFINITY);                                      \
    }                                                                                      \
  }
#define OTHER_UNARY(name)                           \
  OTHER(double, name, nextafter, (double x), (x))   \
  OTHER(long double, name##l, nextafterl, (long double x), (x))

OTHER_UNARY(exp)
OTHER_UNARY(exp2)
OTHER_UNARY(expm1)
OTHER_UNARY(log)
OTHER_UNARY(log2)
OTHER_UNARY(log10)
OTHER_UNARY(log1p)
OTHER_UNARY(cbrt)
OTHER_UNARY(sin)
OTHER_UNARY(cos)
OTHER_UNARY(tan)
OTHER_UNARY(acos)
OTHER_UNARY(asin)
OTHER_UNARY(atan)
OTHER(double, pow, nextafter, (double x, double y), (x, y))
OTHER(long double, powl, nextafterl, (long double x, long double y), (x, y))
