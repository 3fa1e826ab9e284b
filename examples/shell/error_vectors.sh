printf 'latitude,longitude\n47.5,19.05\n97.5,19.05\n' >places.csv
kitlib geoid <places.csv || echo "ends with $?"
kitlib explain kl_geoid_calc:1
