# Lays out the rows that the benchmarks print (bench/measure.h says what their fields are), each as soon as it is there. Lines of
# another form are not theirs.
function number(value) { return sprintf(value >= 1000 ? "%.0f" : value >= 10 ? "%.1f" : "%.2f", value) }
function line(what, peer, theirs, ours, ratio, quartiles, floor, goal, met) {
  printf "| %-52s | %-24s | %12s | %12s | %6s | %-15s | %-17s | %-5s | %-3s |\n",
    what, peer, theirs, ours, ratio, quartiles, floor, goal, met
  fflush()
}
BEGIN {
  FS = "\t"
  line("what", "peer", "peer's time", "our time", "ratio", "quartiles", "ratio to a floor", "goal", "met")
  line("---", "---", "---:", "---:", "---:", "---", "---", "---", "---")
}
{ sub(/\r$/, "") }
NF != 11 { next }
{
  rows++
  goals += $9 > 0
  met += $9 > 0 && $6 <= $9
  line($1, $2, number($4) " " $3, number($5) " " $3, sprintf("%.3f", $6), sprintf("%.3f to %.3f", $7, $8),
    $11 > 0 ? number($11) " " $10 : "", $9 > 0 ? sprintf("%.3f", $9) : "", $9 > 0 ? ($6 <= $9 ? "yes" : "NO") : "")
}
END { printf "\n%d of %d goals are met.\n", met, goals; exit !(rows > 0) }
