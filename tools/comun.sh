# What the tools' scripts share, read with `source`: the repository's root,
# and the build folder a script is given, taken from where the script was
# called when it exists there and from the repository's root otherwise.
repo_root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"

carpeta_build() {
  if [ -d "$1" ]; then (cd "$1" && pwd); else echo "$repo_root/$1"; fi
}
