# Draws what fleet measured: gnuplot -e "data='build/fleet.dat'; picture='docs/fleet.svg'" Bench/Peers/fleet.gp
set terminal svg size 720,420 font "sans-serif,13" background "white"
set output picture
set title "Answers to one broadcast request"
set xlabel "ms after the request"
set ylabel "answers that have come, %"
set yrange [0:100]
set xrange [0:*]
set grid linecolor rgb "#dddddd"
set key bottom right
set samples 2000
stats data using 1 nooutput
# decision 125: each of ten waits, 0 to 90 ms, is drawn as often as any other
waits(x) = x < 100 ? 10 * (floor(x / 10) + 1) : 100
plot for [block = 0:STATS_blocks - 1] data index block using 1:2 with steps linewidth 2 title columnheader(1), \
    waits(x) with lines linecolor rgb "#888888" dashtype 2 title "waits that clients draw"
