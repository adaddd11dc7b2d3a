// web_ifc_import.mjs MODEL.ifc [UPDATES.txt OUT.ifc]: the same updates through web-ifc.
// Without updates it only opens the model. An index from GlobalId to properties is made once, since web-ifc has none.
import fs from 'node:fs';
import * as WebIFC from 'web-ifc';

const [, , modelPath, updatesPath, outPath] = process.argv;
const api = new WebIFC.IfcAPI();
await api.Init();
const model = api.OpenModel(new Uint8Array(fs.readFileSync(modelPath)), { MEMORY_LIMIT: 4294967295 });
if (updatesPath) {
  let done = 0;
  const byGuid = indexProperties();
  for (const line of fs.readFileSync(updatesPath, 'utf8').split('\n')) {
    const [guid, item, , value] = line.split('\t');
    if (value === undefined) continue;
    const id = byGuid.get(toGlobalId(guid))?.get(item.split('[')[0]);
    if (id === undefined) continue;
    const property = api.GetLine(model, id);
    property.NominalValue.value = value;
    api.WriteLine(model, property);
    done += 1;
  }
  fs.writeFileSync(outPath, api.SaveModel(model));
  console.log(done);
}

function indexProperties() {
  const index = new Map();
  const relations = api.GetLineIDsWithType(model, WebIFC.IFCRELDEFINESBYPROPERTIES);
  for (let i = 0; i < relations.size(); i += 1) {
    const relation = api.GetLine(model, relations.get(i));
    const set = api.GetLine(model, relation.RelatingPropertyDefinition.value);
    if (!set?.HasProperties) continue;
    const names = new Map(set.HasProperties.map(({ value }) => [api.GetLine(model, value).Name.value, value]));
    for (const { value } of relation.RelatedObjects) addNames(index, api.GetLine(model, value).GlobalId.value, names);
  }
  return index;
}

function addNames(index, globalId, names) {
  const known = index.get(globalId) ?? new Map();
  for (const [name, id] of names) if (!known.has(name)) known.set(name, id);
  index.set(globalId, known);
}

/** The 22-character form of a GUID: base 64 with the alphabet of ISO 16739's IfcGloballyUniqueId. */
function toGlobalId(guid) {
  const alphabet = '0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_$';
  let number = BigInt(`0x${guid.replaceAll('-', '')}`);
  let text = '';
  for (let i = 0; i < 22; i += 1) {
    text = alphabet[Number(number & 63n)] + text;
    number >>= 6n;
  }
  return text;
}
