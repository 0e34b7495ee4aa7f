# What the scripts share; sourced with the repository as the working folder.
wine32_root=$PWD/build/wine32-root
wine64_loader=/usr/lib/wine/wine64

# What a command that only root may run begins with.
root_rights=()
((EUID == 0)) || root_rights=(sudo)

# The machine's own 32-bit Wine; it wins over the root below build/.
has_own_wine32() {
  [[ -x /usr/lib/wine/wine ]]
}
