# Completion of kitlib for bash: verbs, and the options that a verb's own help names.
_kitlib()
{
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} verb=${COMP_WORDS[1]}
    COMPREPLY=()
    if [ "$COMP_CWORD" -eq 1 ]; then
        COMPREPLY=($(compgen -W "time sky sun moon planet frame geoid geodetic kepler topocentric pass distance eclipse star timeid explain functions --help --version" -- "$word"))
        return
    fi
    case "$verb $before" in
    "time --from" | "time --to" | *" --scale") COMPREPLY=($(compgen -W "TAI UTC UT1 GPS" -- "$word")); return ;;
    "frame --from" | "frame --to" | *" --frame")
        COMPREPLY=($(compgen -W "GM2000 MOD TOD TEME PEF EF HM2000 BM2000 BM1950 GALACTIC" -- "$word")); return ;;
    *" --format") COMPREPLY=($(compgen -W "iso compact named underscore digits mjd2000" -- "$word")); return ;;
    "planet planet")
        COMPREPLY=($(compgen -W "mercury venus earth-moon mars jupiter saturn uranus neptune" -- "$word")); return ;;
    "explain explain" | "functions functions")
        COMPREPLY=($(compgen -W "$("${COMP_WORDS[0]}" functions 2>/dev/null | cut -d' ' -f1)" -- "$word")); return ;;
    esac
    case "$word" in
    -*) COMPREPLY=($(compgen -W "$("${COMP_WORDS[0]}" "$verb" --help 2>/dev/null | grep -o -- '--[a-z][a-z-]*' | sort -u)" -- "$word")) ;;
    *) COMPREPLY=($(compgen -f -- "$word")) ;;
    esac
}
complete -F _kitlib kitlib
