# shows.awk CODE TEXT: whether the text holds the code as one block of ```cpp, line for line.
FNR == NR { code = code $0 "\n"; next }
/^```cpp$/ { inside = 1; block = ""; next }
/^```$/ && inside { inside = 0; if (block == code) found = 1; next }
inside { block = block $0 "\n" }
END {
    if (!found) print ARGV[2] " does not show " ARGV[1] " as it is"
    exit !found
}
