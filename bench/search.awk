# 170 headers of 1,000 names each, with a comment at each class.
BEGIN {
  split("open close read write find insert remove buffer stream memory index table point colour", verb)
  split("fast basic shared local remote spare big first last common plain hidden inner outer", noun)
  for (file = 0; file < 170; ++file) {
    name = ENVIRON["OUT"] "/part" file ".h"
    for (i = 0; i < 20; ++i) {
      class = noun[i % 14 + 1] "_" verb[file % 14 + 1] "_" file * 20 + i
      printf "/** The %s %s of the kind %d, kept for %s work. */\nclass %s {\npublic:\n", noun[i % 14 + 1],
        verb[file % 14 + 1], file, verb[(file + i) % 14 + 1], class > name
      for (method = 0; method < 49; ++method)
        printf "  %s & %s%s%d(int a, char const * b);\n", class, verb[method % 14 + 1],
          toupper(substr(noun[(method + i) % 14 + 1], 1, 1)) substr(noun[(method + i) % 14 + 1], 2), method > name
      print "};" > name
    }
    close(name)
  }
}
