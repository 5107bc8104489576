#!/usr/bin/env bash
# Prints the rows of docs/performance.md that a run of the benchmarks gives, with the ratio of medians
# that it measured.
#   docs/performance.sh [FOLDER]      of the benchmarks' outputs, out/bench
# A row says: program, ours, beside which, what the page says of both. In front stands "cpu" for a
# ratio of processor time, "items" for one of the time for each item.
set -euo pipefail
export LC_ALL=C  # numbers with a point
results=${1:-$(dirname "$0")/../out/bench}

rows() {
  cat <<'TABLE'
# Terrain
terrain_query|altitude/random/orlek|altitude/random/bare|getAltitude, loaded tile, random points|hand-written bilinear lookup
terrain_query|altitude/path/orlek|altitude/path/bare|getAltitude, along a path|the same
items terrain_query|altitude/random/orlek|altitude/random/gdal|getAltitude, random points|GDAL, reading 2 × 2 posts
terrain_query|normal/path/orlek|normal/path/rules|getNormal, along a path|the rules sample by sample
terrain_query|normal/random/orlek|normal/random/rules|getNormal, random points|the same
terrain_load|N42E001.hgt/orlek|N42E001.hgt/zlib|first query of a zipped tile, 3″|zlib's inflate alone
terrain_load|N43E007.hgt/orlek|N43E007.hgt/zlib|the same, another tile|zlib's inflate alone
terrain_load|N48W125.hgt/orlek|N48W125.hgt/zlib|first query of a zipped tile, 1″|zlib's inflate alone
terrain_load|N42E001.hgt/orlek|N42E001.hgt/gdal|first query of a zipped tile, 3″|GDAL
terrain_load|N43E007.hgt/orlek|N43E007.hgt/gdal|the same, another tile|GDAL
terrain_load|N48W125.hgt/orlek|N48W125.hgt/gdal|first query of a zipped tile, 1″|GDAL
terrain_load|DT1/orlek|DT1/read|DTED load|one raw read of the file
terrain_load|DT1/orlek|DT1/gdal|DTED load|GDAL
terrain_load|scan/orlek|scan/bare|scanning 2,000 tiles|listing and reading 80 bytes of each
terrain_query|relief/orlek|relief/gdaldem|relief of 1280 × 800|gdaldem hillshade, as a process
# Files
files|N42E001.hgt/ZipFile|N42E001.hgt/zlib/fresh|ZipFile::readFirstFile, 3″|inflate into fresh memory
files|N43E007.hgt/ZipFile|N43E007.hgt/zlib/fresh|the same, another tile|inflate into fresh memory
files|N48W125.hgt/ZipFile|N48W125.hgt/zlib/fresh|ZipFile::readFirstFile, 1″|inflate into fresh memory
files|N42E001.hgt/ZipFile|N42E001.hgt/zlib/warm|ZipFile::readFirstFile, 3″|inflate into memory in use
files|N43E007.hgt/ZipFile|N43E007.hgt/zlib/warm|the same, another tile|inflate into memory in use
files|N48W125.hgt/ZipFile|N48W125.hgt/zlib/warm|ZipFile::readFirstFile, 1″|inflate into memory in use
files|scan/Directory|scan/bare|Directory::entryList and 80 bytes of each|the bare calls
# Settings
property|load/Property|load/TinyXML|Property::readXmlFile|TinyXML's load
property|load/XmlDocument|load/TinyXML|XmlDocument::read|TinyXML's load
property|save/Property|save/TinyXML|Property::writeXmlFile|TinyXML's save, left to the cache
property|save/Property|save/TinyXML+fsync|Property::writeXmlFile|TinyXML's save and fsync
property|load/printing|load/Property|the lines that reading prints|reading with them
# Drawing
lines|loopLibrary/hard|loopByName/hard|one small unsmoothed line object a frame|names looked up, errors drained twice
lines|loopLibrary/hard|loopDrawOnly|the same|the bare draw call
lines|loopLibrary/hard|loopBare/hard|the same|the bare draw call with its state calls
lines|loopLibrary/smooth|loopBare/smooth|one small smoothed line object a frame|the bare smooth draw
strips|drawLibrary|drawCairo|1,000 strips of 100 points, smooth|cairo's image backend
strips|drawLibrary|drawBare|the same|the bare draw
strips|uploadLibrary/solid|uploadByHand/solid|upload of 1,000,000 vertices in 10,000 strips|by hand
strips|uploadLibrary/stippled|uploadByHand/stippled|the same, stippled|by hand
text|unchangedBatch|unchangedBare|batched text, unchanged|the bare draw of the same quads
text|rebuiltBatch|rebuiltBare|the same, rebuilt in every frame|by hand
text|unchangedBatch|ftglTextureFont|batched text, unchanged|FTGL's texture font
sdf|fieldBatch|fieldBatchBare|distance-field text, batched|the bare draw of the same quads
sdf|fieldAtOnce|fieldAtOnceBare|the same, at once|one uniform and one draw a glyph
sdf|buildAtlasAndField|buildAtlasAndLetter|atlas and distance field of 224 glyphs|the transform to the letter
sdf|buildAtlasAndField|freetypeBitmapField|the same|FreeType's bitmap renderer
images|videoPutFrame|copyAndBareUpdate|Video::putFrame, 1920 × 1080|memcpy and the bare update
images|videoPutFrame|updateFromClientMemory|the same|the update from client memory
stroke|unchangedBatch|unchangedBare|batched stroke text, unchanged|the bare draw of the same strips
stroke|rebuiltBatch|rebuiltBare|the same, rebuilt in every frame|by hand
stroke|rebuiltBatch|uploadedBare|the same|the bare upload and draw
fill|tesselateLibrary/star|tesselateBare/star|cutting a star of 10,000 corners|the GLU calls alone
fill|tesselateLibrary/circle|tesselateBare/circle|the same, a circle|the GLU calls alone
fill|drawLibrary|drawBare|drawing its 2,000 primitives|the bare draw calls
# Network
cpu tcp|exchange/0/orlek|exchange/0/bare|one package written and one read, 0 bytes|send and recv
cpu tcp|exchange/64/orlek|exchange/64/bare|the same, 64 bytes|the same
cpu tcp|exchange/1024/orlek|exchange/1024/bare|the same, 1,024 bytes|the same
cpu tcp|exchange/65536/orlek|exchange/65536/bare|the same, 65,536 bytes|the same
cpu tcp|exchange/0/orlek|exchange/0/asio|the same, 0 bytes|Asio
cpu tcp|exchange/65536/orlek|exchange/65536/asio|the same, 65,536 bytes|Asio
cpu tcp|exchange/0/orlek|exchange/0/zeromq|the same, 0 bytes|ZeroMQ
cpu tcp|exchange/65536/orlek|exchange/65536/zeromq|the same, 65,536 bytes|ZeroMQ
cpu tcp|exchange/0/orlek|exchange/0/nng|the same, 0 bytes|nng
cpu tcp|exchange/65536/orlek|exchange/65536/nng|the same, 65,536 bytes|nng
tcp|backlog/0/orlek|backlog/0/bare|a backlog of 1 MiB, 0 bytes a package|a moving offset
tcp|backlog/64/orlek|backlog/64/bare|the same, 64 bytes|a moving offset
tcp|backlog/1024/orlek|backlog/1024/bare|the same, 1,024 bytes|a moving offset
tcp|backlog/16384/orlek|backlog/16384/bare|the same, 16,384 bytes|a moving offset
tcp|poll/orlek|poll/bare|500 connections without news|a bare recv on each
# Geodesy
geodesy|distanceOrlek|distancePlain|calcDistance|the plain formula
geodesy|bearingOrlek|bearingPlain|calcBearing|the plain formula
geodesy|distanceOrlek|geodesicDistance|calcDistance|GeographicLib's inverse
geodesy|bearingOrlek|geodesicBearing|calcBearing|GeographicLib's inverse
# Polygons
polygon|operationOrlek/kind:0/n:10|operationPlain/kind:0/n:10|boolOperation, n = 10, few|the plain double loop
polygon|operationOrlek/kind:1/n:10|operationPlain/kind:1/n:10|the same, many|the plain double loop
polygon|operationOrlek/kind:0/n:1000|operationPlain/kind:0/n:1000|n = 1,000, few|the plain double loop
polygon|operationOrlek/kind:1/n:1000|operationPlain/kind:1/n:1000|n = 1,000, many|the plain double loop
polygon|operationOrlek/kind:0/n:1000|operationClipper/kind:0/n:1000|n = 1,000, few|Clipper
polygon|operationOrlek/kind:1/n:1000|operationClipper/kind:1/n:1000|n = 1,000, many|Clipper
polygon|operationOrlek/kind:0/n:10000|operationClipper/kind:0/n:10000|n = 10,000, few|Clipper
polygon|operationOrlek/kind:1/n:10000|operationClipper/kind:1/n:10000|n = 10,000, many|Clipper
polygon|operationOrlek/kind:0/n:100000|operationClipper/kind:0/n:100000|n = 100,000, few|Clipper
polygon|operationOrlek/kind:1/n:100000|operationClipper/kind:1/n:100000|n = 100,000, many|Clipper
polygon|operationOrlek/kind:0/n:1000|operationBoost/kind:0/n:1000|n = 1,000, few|Boost.Geometry
polygon|operationOrlek/kind:1/n:1000|operationBoost/kind:1/n:1000|n = 1,000, many|Boost.Geometry
polygon|operationOrlek/kind:0/n:10000|operationBoost/kind:0/n:10000|n = 10,000, few|Boost.Geometry
polygon|operationOrlek/kind:1/n:10000|operationBoost/kind:1/n:10000|n = 10,000, many|Boost.Geometry
polygon|operationOrlek/kind:0/n:10000|operationOrlek/kind:0/n:1000|time for n = 10,000, few|time for n = 1,000
polygon|operationOrlek/kind:1/n:10000|operationOrlek/kind:1/n:1000|the same, many|time for n = 1,000
polygon|insideOrlek/kind:0/n:10000|insideHand/kind:0/n:10000|pointInside, 10,000 vertices|the usual loop by hand
polygon|insideOrlek/kind:2/n:10000|insideHand/kind:2/n:10000|the same, spikes|the usual loop by hand
TABLE
}

# A line of a result: name, time, unit, processor time, unit, count.
awk -F '|' -v results="$results" '
  function perItem(rate,   unit) {  # "items_per_second=29.787M/s"
    sub(/.*=/, "", rate)
    unit = rate ~ /G/ ? 1e9 : rate ~ /M/ ? 1e6 : rate ~ /k/ ? 1e3 : 1
    return 1 / (rate * unit)
  }
  function bring(program,   file, line, words, name) {
    if (program in brought) return
    brought[program] = 1
    file = results "/" program "_bench.txt"
    while ((getline line < file) > 0) {
      if (split(line, words, " ") < 5 || words[1] !~ /_median$/) continue
      name = words[1]
      gsub(/\/real_time|\/manual_time|\/process_time|_median$/, "", name)
      measured["", program, name] = words[2]
      measured["cpu", program, name] = words[4]
      if (line ~ /items_per_second=/) measured["items", program, name] = perItem(line)
    }
    close(file)
  }
  /^# / { printf "\n## %s\n\n| what | beside | measured |\n|---|---|---|\n", substr($0, 3); next }
  {
    program = $1
    kind = sub(/^cpu /, "", program) ? "cpu" : sub(/^items /, "", program) ? "items" : ""
    bring(program)
    ours = measured[kind, program, $2]
    theirs = measured[kind, program, $3]
    known = ours + 0 > 0 && theirs + 0 > 0
    missing += !known
    ratio = known ? ours / theirs : 0
    printf "| %s | %s | %s |\n", $4, $5, known ? sprintf(ratio < 0.02 ? "%.3f" : "%.2f", ratio) : "–"
  }
  END {
    if (missing) printf "performance.sh: %d rows without a result in %s\n", missing, results > "/dev/stderr"
  }' < <(rows)
