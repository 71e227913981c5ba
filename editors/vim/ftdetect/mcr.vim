au BufRead,BufNewFile *.mcr setfiletype mcr
