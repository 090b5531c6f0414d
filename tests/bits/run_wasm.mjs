// Runs a WebAssembly program for WASI with its arguments: node run_wasm.mjs PROGRAM [ARGUMENT ...]

import { readFile } from 'node:fs/promises';
import { WASI } from 'node:wasi';

const args = process.argv.slice(2);
const wasi = new WASI({ version: 'preview1', args, returnOnExit: true });
const { instance } = await WebAssembly.instantiate(await readFile(args[0]), {
  wasi_snapshot_preview1: wasi.wasiImport,
});
process.exitCode = wasi.start(instance);
