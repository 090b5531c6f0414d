# Not run: Julia is not in Debian, and nothing here has been tried with it. The procedures and their
# arguments are those of co2_properties.h, which the other hosts call.
#
# The library has to be a shared one (-DBUILD_SHARED_LIBS=ON) and in the folders where Julia looks,
# or CO2_LIBRARY has to be its path.
module CO2

using Libdl

export co2

const library = get(ENV, "CO2_LIBRARY", "libco2_properties")

const names = (
    # outputs: begin, written by scripts/generate_outputs
    :temp, :pres, :dens, :svol, :qual, :inte, :enth, :entr, :cv, :cp, :ssnd, :visc, :cond,
    :dpdd, :dpdt, :dhdd, :dhdt, :dsdd, :dsdt,
    # outputs: end
)

# co2_inputs, co2_outputs and co2_codes: an array and its stride, 0 for one value that serves all.
struct Strided
    data::Ptr{Cvoid}
    stride::Cptrdiff_t
end

function message(code)
    text = fill(UInt8(' '), 255)
    ccall(dlsym(dlopen(library), :co2_error_message), Cvoid, (Ref{Int32}, Ptr{UInt8}), code, text)
    return rstrip(String(text))
end

"""
    state = co2(entry, a, b, outputs...)

Properties of carbon dioxide in the units of the library (K, kPa, kg/m3, kJ/kg, kJ/(kg K), m/s, uPa s,
W/(m K)). `entry` says what `a` and `b` are: `:td`, `:tp`, `:ph`, `:ps`, `:du`, `:dh`, `:ds`, `:dp`, `:hs`, `:pu`,
`:ts`, `:tx` or `:px`; numbers, or arrays of one shape. `state.dens` is an array of that shape, NaN where there
is no value, such as a heat capacity in two phases; `state.ierr` are the status codes. An error in any
state is an error.

    co2(:ph, 8000, [300, 350, 400], :dens, :cp).cp
"""
function co2(entry::Symbol, a, b, outputs::Symbol...)
    a isa Number || b isa Number || size(a) == size(b) || throw(DimensionMismatch("a and b"))
    allunique(outputs) || throw(ArgumentError("a property twice"))
    shape = a isa Number ? size(b) : size(a)
    first, second = (x isa Number ? [Float64(x)] : Array{Float64}(x) for x in (a, b))
    results = [zeros(shape) for _ in outputs]
    codes = zeros(Int32, shape)
    slots = fill(Strided(C_NULL, 0), length(names))
    for (name, values) in zip(outputs, results)
        slot = findfirst(==(name), names)
        slot === nothing && throw(ArgumentError("no property called $name"))
        slots[slot] = Strided(pointer(values), 1)
    end
    GC.@preserve first second results codes begin
        ccall(dlsym(dlopen(library), Symbol(:co2_, entry, :_batch)), Cvoid,
              (Ref{Csize_t}, Ref{Strided}, Ref{Strided}, Ref{Strided}, Ptr{Strided}),
              length(codes), Strided(pointer(first), !(a isa Number)),
              Strided(pointer(second), !(b isa Number)), Strided(pointer(codes), 1), slots)
    end
    bad = findfirst(>(0), codes)
    bad === nothing || error("state $(Tuple(bad)): $(message(codes[bad]))")
    for (name, values) in zip(outputs, results)
        # The library says 0 where there is no value; of all properties only the quality can be 0.
        name === :qual || replace!(values, 0.0 => NaN)
    end
    return NamedTuple{(outputs..., :ierr)}((results..., codes))
end

end
