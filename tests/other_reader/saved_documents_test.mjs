// Documents that orvhost has saved, as another reader of the format sees them: what was set is
// there, and all else is as it was.
//
// Environment: ORV_BIN_FOLDER, where orvhost is; ORV_EXAMPLE, a document; ORV_MODEL_CORPUS, a
// folder of more documents, if there is one.

import assert from 'node:assert/strict'
import { spawnSync } from 'node:child_process'
import fs from 'node:fs'
import os from 'node:os'
import path from 'node:path'
import { after, test } from 'node:test'
import rhino3dm from 'rhino3dm'

const rhino = await rhino3dm()
const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'orv größe '))
after(() => fs.rmSync(folder, { recursive: true }))

const SETTINGS = 'PixelSamples=7\nOrvNote=größer\n'

function orvhost(...args) {
  const program = path.join(process.env.ORV_BIN_FOLDER, 'orvhost')
  const env = { ...process.env, ORV_PROFILE_DIR: path.join(folder, 'profile') }
  const { status, stdout, stderr } = spawnSync(program, args, { env, encoding: 'utf8' })
  // A command may have had nothing to do.
  assert.ok(status === 0 || status === 2, `orvhost ended with ${status}: ${stdout}${stderr}`)
  return stdout
}

function read(file) {
  const document = rhino.File3dm.fromByteArray(new Uint8Array(fs.readFileSync(file)))
  assert.ok(document, `the other reader can't read ${file}`)
  return document
}

const list = (table) => Array.from({ length: table.count }, (_, i) => table.get(i))
const strings = (thing) => Object.fromEntries(thing.getUserStrings())

function objectFacts(object) {
  const a = object.attributes()
  const g = object.geometry()
  const isLight = g.objectType === rhino.ObjectType.Light
  return {
    id: a.id,
    name: a.name,
    type: g.objectType.value,
    box: g.getBoundingBox ? [g.getBoundingBox().min, g.getBoundingBox().max] : [],
    layer: a.layerIndex,
    material: a.materialIndex,
    mode: a.mode.value,
    color: a.objectColor,
    groups: a.groupCount > 0 ? a.getGroupList() : [],
    geometryStrings: isLight ? {} : strings(g),
    // The texts of a light stand on the light itself.
    strings: isLight ? strings(g) : strings(a),
  }
}

const materialFacts = (m) => ({
  name: m.name,
  diffuse: m.diffuseColor,
  transparency: m.transparency,
  shine: m.shine,
  texture: m.getBitmapTexture()?.fileName,
  strings: strings(m),
})
const layerFacts = (l) => ({
  name: l.name,
  id: l.id,
  parent: l.parentLayerId,
  color: l.color,
  visible: l.visible,
  locked: l.locked,
  strings: strings(l),
})

function facts(file) {
  const document = read(file)
  return {
    version: document.archiveVersion,
    objects: list(document.objects()).map(objectFacts),
    materials: list(document.materials()).map(materialFacts),
    layers: list(document.layers()).map(layerFacts),
    settings: document.settings().modelUnitSystem.value,
    linetypes: document.linetypes().count,
    dimstyles: document.dimstyles().count,
    blocks: document.instanceDefinitions().count,
    views: document.views().count,
    plugins: document.plugInData().count,
  }
}

// The reader makes up ids where a document has none; each time others.
function forgetInventedIds(facts, again, now) {
  facts.forEach((thing, i) => {
    if (thing.id !== again[i].id) thing.id = now[i].id = 'none'
  })
}

// What was there is there, with the text `key` on some.
function expectKept(before, now, key, value) {
  let changed = 0
  before.forEach((thing, i) => {
    const texts = { ...now[i].strings }
    if (key in texts) {
      assert.equal(texts[key], value)
      delete texts[key]
      changed += 1
    }
    assert.deepEqual({ ...now[i], strings: texts }, thing)
  })
  return changed
}

function documents() {
  const found = [process.env.ORV_EXAMPLE]
  const corpus = process.env.ORV_MODEL_CORPUS
  for (const sub of corpus ? ['real', 'made'] : []) {
    for (const name of fs.readdirSync(path.join(corpus, sub))) {
      if (name.endsWith('.3dm') && !name.startsWith('v1_')) found.push(path.join(corpus, sub, name))
    }
  }
  return found
}

for (const file of documents()) {
  test(path.basename(file), () => {
    const settings = path.join(folder, 'settings.ors')
    const saved = path.join(folder, 'saved.3dm')
    fs.writeFileSync(settings, SETTINGS)
    const told = orvhost(file, '-c', `
      SelAll SetUserText OrvTest "größer als ""zwei"""
      SelAll SetUserText On=Material OrvMaterialTest wert
      OrvLoadSettings "${settings}"
      SaveAs "${saved}"`)
    const before = facts(file)
    const now = facts(saved)
    const again = facts(file)
    forgetInventedIds(before.objects, again.objects, now.objects)
    forgetInventedIds(before.layers, again.layers, now.layers)

    assert.equal(now.version, before.version)
    assert.equal(now.objects.length, before.objects.length)
    const onObjects = expectKept(before.objects, now.objects, 'OrvTest', 'größer als "zwei"')
    const toldCount = Number(/OrvTest set on (\d+) object/.exec(told)?.[1] ?? 0)
    assert.equal(onObjects, toldCount)
    assert.ok(now.materials.length >= before.materials.length)
    expectKept(before.materials, now.materials, 'OrvMaterialTest', 'wert')
    for (const material of now.materials.slice(before.materials.length)) {
      assert.deepEqual(material.strings, { OrvMaterialTest: 'wert' })
    }
    expectKept(before.layers, now.layers)
    for (const count of ['settings', 'linetypes', 'dimstyles', 'blocks', 'views']) {
      assert.equal(now[count], before[count], count)
    }
  })
}

test('the settings are carried on by the other program', () => {
  const settings = path.join(folder, 'settings.ors')
  const saved = path.join(folder, 'saved.3dm')
  const carried = path.join(folder, 'carried.3dm')
  const again = path.join(folder, 'again.ors')
  fs.writeFileSync(settings, SETTINGS)
  orvhost(process.env.ORV_EXAMPLE, '-c', `OrvLoadSettings "${settings}" SaveAs "${saved}"`)
  assert.equal(facts(saved).plugins, facts(process.env.ORV_EXAMPLE).plugins + 1)
  fs.writeFileSync(carried, read(saved).toByteArray())
  orvhost(carried, '-c', `OrvSaveSettings "${again}"`)
  assert.equal(fs.readFileSync(again, 'utf8'), SETTINGS)
})

test('a new document', () => {
  const saved = path.join(folder, 'new.3dm')
  orvhost('-c', `SaveAs "${saved}"`)
  const document = facts(saved)
  assert.equal(document.version, 70)
  assert.deepEqual(document.objects, [])
})
