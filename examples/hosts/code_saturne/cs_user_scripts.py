"""The mesh, and how the sources of the case are compiled."""
import subprocess


def define_domain_parameters(domain):
    domain.meshes = ["channel.msh"]
    domain.compile_cflags = flags("--cflags")
    domain.compile_libs = flags("--libs")


def flags(kind):
    return subprocess.check_output(["pkg-config", kind, "co2_properties"], text=True).strip()
