// Carbon dioxide as a model of thermophysical properties: `thermoType co2;` in
// constant/thermophysicalProperties, `libs ("libco2Thermo.so");` in system/controlDict. Energy is
// enthalpy, `h`. States have to stay in one phase; one that has no properties ends the run.
#include <co2_properties.h>

#include <vector>

#include "addToRunTimeSelectionTable.H"
#include "fvMesh.H"
#include "gradientEnergyFvPatchScalarField.H"
#include "mixedEnergyFvPatchScalarField.H"
#include "rhoThermo.H"

namespace Foam {

class co2Thermo : public rhoThermo {
  volScalarField he_, Cp_, Cv_;

  // The library has kPa, kJ/kg, kJ/(kg K) and uPa s.
  using Entry = decltype(co2_tp_batch);
  using Property = co2_outputs co2_batch_output_set::*;

  // The states of (T, p) with co2_tp_batch, of (p, h) with co2_ph_batch.
  static void call(Entry* entry, const scalarField& a, const scalarField& b,
                   const co2_batch_output_set& out) {
    const size_t count = a.size();
    std::vector<int32_t> codes(count);
    const co2_inputs first = {a.cdata(), 1}, second = {b.cdata(), 1};
    const co2_codes ierr = {codes.data(), 1};
    entry(&count, &first, &second, &ierr, &out);
    for (size_t i = 0; i < count; ++i) {
      if (codes[i] == 0) continue;
      char text[256] = {};
      co2_error_message(&codes[i], text);
      FatalErrorInFunction << text << nl << "from " << a[i] << " and " << b[i] << exit(FatalError);
    }
  }

  // One property, in units of the library times `unit`.
  static tmp<scalarField> property(Entry* entry, const scalarField& a, const scalarField& b,
                                   Property which, scalar unit) {
    scalarField values(a.size());
    co2_batch_output_set out = {};
    out.*which = {values.data(), 1};
    call(entry, a, b, out);
    return unit * values;
  }
  static tmp<scalarField> of_tp(const scalarField& p, const scalarField& T, Property which,
                                scalar unit = 1000) {
    return property(co2_tp_batch, T, scalarField(p / 1000), which, unit);
  }

  // All of one region, cells or a patch, by one call: from T where that is given, else from h.
  static void update(bool T_is_given, const scalarField& p, scalarField& T, scalarField& h,
                     scalarField& rho, scalarField& psi, scalarField& mu, scalarField& alpha,
                     scalarField& Cp, scalarField& Cv) {
    const scalarField pres(p / 1000);
    scalarField enth(h / 1000);
    co2_batch_output_set out = {};
    out.dens = {rho.data(), 1};
    out.visc = {mu.data(), 1};
    out.cond = {alpha.data(), 1};
    out.cp = {Cp.data(), 1};
    out.cv = {Cv.data(), 1};
    if (T_is_given) {
      out.enth = {enth.data(), 1};
      call(co2_tp_batch, T, pres, out);
      h = 1000 * enth;
    } else {
      out.temp = {T.data(), 1};
      call(co2_ph_batch, pres, enth, out);
    }
    Cp *= 1000;
    Cv *= 1000;
    mu *= 1e-6;
    alpha /= Cp;
    psi = rho / p;  // solvers put rho = psi*p: not the derivative (d rho/d p)
  }

  void calculate(bool T_is_given) {
    update(T_is_given, p_.primitiveField(), T_.primitiveFieldRef(), he_.primitiveFieldRef(),
           rho_.primitiveFieldRef(), psi_.primitiveFieldRef(), mu_.primitiveFieldRef(),
           alpha_.primitiveFieldRef(), Cp_.primitiveFieldRef(), Cv_.primitiveFieldRef());
    forAll(T_.boundaryField(), i) {
      update(T_is_given || T_.boundaryField()[i].fixesValue(), p_.boundaryField()[i],
             T_.boundaryFieldRef()[i], he_.boundaryFieldRef()[i], rho_.boundaryFieldRef()[i],
             psi_.boundaryFieldRef()[i], mu_.boundaryFieldRef()[i], alpha_.boundaryFieldRef()[i],
             Cp_.boundaryFieldRef()[i], Cv_.boundaryFieldRef()[i]);
    }
  }

  static IOobject named(const word& name, const fvMesh& mesh) {
    return IOobject(name, mesh.time().timeName(), mesh);
  }

 public:
  TypeName("co2");

  co2Thermo(const fvMesh& mesh, const word& phase)
      : rhoThermo(mesh, phase),
        he_(named(phasePropertyName("h"), mesh), mesh, dimEnergy / dimMass, heBoundaryTypes(),
            heBoundaryBaseTypes()),
        Cp_(named(phasePropertyName("thermo:Cp"), mesh), mesh,
            dimEnergy / dimMass / dimTemperature),
        Cv_(named(phasePropertyName("thermo:Cv"), mesh), mesh, Cp_.dimensions()) {
    calculate(true);
    for (fvPatchScalarField& patch : he_.boundaryFieldRef()) {
      if (isA<gradientEnergyFvPatchScalarField>(patch)) {
        refCast<gradientEnergyFvPatchScalarField>(patch).gradient() = patch.fvPatchField::snGrad();
      } else if (isA<mixedEnergyFvPatchScalarField>(patch)) {
        refCast<mixedEnergyFvPatchScalarField>(patch).refGrad() = patch.fvPatchField::snGrad();
      }
    }
  }

  void correct() override { calculate(false); }
  word thermoName() const override { return typeName; }
  bool incompressible() const override { return false; }
  bool isochoric() const override { return false; }

  volScalarField& he() override { return he_; }
  const volScalarField& he() const override { return he_; }
  tmp<volScalarField> he(const volScalarField& p, const volScalarField& T) const override {
    tmp<volScalarField> result(new volScalarField(he_));
    volScalarField& h = result.ref();
    h.primitiveFieldRef() = he(p.primitiveField(), T.primitiveField(), labelList());
    forAll(h.boundaryField(), i) {
      h.boundaryFieldRef()[i] == he(p.boundaryField()[i], T.boundaryField()[i], i);
    }
    return result;
  }
  tmp<scalarField> he(const scalarField& p, const scalarField& T, const labelList&) const override {
    return of_tp(p, T, &co2_batch_output_set::enth);
  }
  tmp<scalarField> he(const scalarField& p, const scalarField& T, label) const override {
    return of_tp(p, T, &co2_batch_output_set::enth);
  }
  tmp<scalarField> THE(const scalarField& h, const scalarField& p, const scalarField&,
                       const labelList&) const override {
    return property(co2_ph_batch, scalarField(p / 1000), scalarField(h / 1000),
                    &co2_batch_output_set::temp, 1);
  }
  tmp<scalarField> THE(const scalarField& h, const scalarField& p, const scalarField& T0,
                       label) const override {
    return THE(h, p, T0, labelList());
  }
  tmp<volScalarField> hc() const override { return 0 * he_; }  // nothing reacts

  tmp<volScalarField> Cp() const override { return Cp_; }
  tmp<scalarField> Cp(const scalarField& p, const scalarField& T, label) const override {
    return of_tp(p, T, &co2_batch_output_set::cp);
  }
  tmp<volScalarField> Cv() const override { return Cv_; }
  tmp<scalarField> Cv(const scalarField& p, const scalarField& T, label) const override {
    return of_tp(p, T, &co2_batch_output_set::cv);
  }
  tmp<volScalarField> gamma() const override { return Cp_ / Cv_; }
  tmp<scalarField> gamma(const scalarField& p, const scalarField& T, label i) const override {
    return Cp(p, T, i) / Cv(p, T, i);
  }
  tmp<volScalarField> Cpv() const override { return Cp_; }  // of the energy that is solved for
  tmp<scalarField> Cpv(const scalarField& p, const scalarField& T, label i) const override {
    return Cp(p, T, i);
  }
  tmp<volScalarField> CpByCpv() const override { return Cp_ / Cp_; }
  tmp<scalarField> CpByCpv(const scalarField&, const scalarField& T, label) const override {
    return tmp<scalarField>(new scalarField(T.size(), 1));
  }
  tmp<volScalarField> W() const override {
    return tmp<volScalarField>(new volScalarField(
        named("W", T_.mesh()), T_.mesh(), dimensionedScalar("W", dimMass / dimMoles, 44.0098)));
  }

  tmp<volScalarField> kappa() const override { return Cp_ * alpha_; }
  tmp<scalarField> kappa(label i) const override {
    return Cp_.boundaryField()[i] * alpha_.boundaryField()[i];
  }
  tmp<volScalarField> alphahe() const override { return alpha_; }
  tmp<scalarField> alphahe(label i) const override { return alpha_.boundaryField()[i]; }
  tmp<volScalarField> kappaEff(const volScalarField& alphat) const override {
    return Cp_ * (alpha_ + alphat);
  }
  tmp<scalarField> kappaEff(const scalarField& alphat, label i) const override {
    return Cp_.boundaryField()[i] * (alpha_.boundaryField()[i] + alphat);
  }
  tmp<volScalarField> alphaEff(const volScalarField& alphat) const override {
    return alpha_ + alphat;
  }
  tmp<scalarField> alphaEff(const scalarField& alphat, label i) const override {
    return alpha_.boundaryField()[i] + alphat;
  }
};

defineTypeNameAndDebug(co2Thermo, 0);
addToRunTimeSelectionTable(basicThermo, co2Thermo, fvMesh);
addToRunTimeSelectionTable(fluidThermo, co2Thermo, fvMesh);
addToRunTimeSelectionTable(rhoThermo, co2Thermo, fvMesh);

}  // namespace Foam
