// Prints tables of an Access database as npm's mdb-reader reads them: fields end with 0x1F, rows with
// 0x1E, tables with 0x1D; Null is a letter n, a text follows a letter t, anything else is as it is.
// Ends with 3 where mdb-reader is not installed (here, or where NODE_PATH points).
let reader;
try {
    const module = require('mdb-reader');
    reader = module.default || module;
} catch (error) {
    process.exit(3);
}
const [file, ...tables] = process.argv.slice(2);
const database = new reader(require('fs').readFileSync(file));
const field = (column, value) => {
    if (value === null) return 'n';
    if (typeof value === 'boolean') return value ? '1' : '0';
    return (column.type === 'text' || column.type === 'memo' ? 't' : '') + value;
};
let text = '';
for (const name of tables) {
    const table = database.getTable(name);
    for (const row of table.getData()) {
        for (const column of table.getColumns()) text += field(column, row[column.name]) + '\x1f';
        text += '\x1e';
    }
    text += '\x1d';
}
process.stdout.write(text);
